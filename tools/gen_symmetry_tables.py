#!/usr/bin/python3
"""Writes the constant tables of vant_symmetry_tables as C++ source.

Run from the top of the source tree with Debian's python3-cctbx installed
(it is a tool of the developers, not of the build):

    /usr/bin/python3 tools/gen_symmetry_tables.py

It writes
    crystal/vant_symmetry_tables_spgr_data.cpp      the 612 rows of spgr_info
    crystal/vant_symmetry_tables_wyckoff_data.cpp   the 273 rows of wyckoff_info
    crystal/vant_symmetry_tables_gen_data.cpp       the 230 rows of spg_gen
    tests/crystal/wyckoff_reference_data.h          multiplicities for the tests
    tests/crystal/hall_reference_data.h             every Hall symbol expanded, for the tests

and the files are committed, so that building the program needs no Python.

Where each column comes from
----------------------------
spgr_info
  n, hm, hall  Our own list of the 612 settings below (SETTINGS): number, upper-case
               Hermann-Mauguin symbol and Hall symbol, in the program's row order.
  laue, pg     Worked out from the operators of the Hall symbol as cctbx expands
               it (International Tables Vol. A data): the crystal class by the
               orders of the rotations, its orientation by the axes of the
               two-fold rotations and mirrors; R lattices take the "R" Laue
               classes, the cubic symbols written without "-3" take "m3"/"m3m".
               Each result is checked against cctbx's own Laue group and point
               group type.
  asu          The asymmetric unit of International Tables Vol. A as cctbx
               carries it for the reference setting of the number, carried
               into the row's setting by cctbx's change of basis; its bounding
               box, in 24ths, when that box lies inside the cell. Otherwise the
               smallest box anchored at the origin (limits in 1/8, 1/6, 1/4,
               1/3, 1/2, 2/3, 3/4, 1) whose images under the group cover the
               cell, found on a grid of test points; among boxes of equal
               volume the one with fewest reduced axes, then the smallest
               limits in x, y, z order. The rows listed in FIXED_ROWS keep the
               values we have from the Tables directly.
  inf_extra    The setting code of cctbx's table of settings (extension and
               qualifier, as "b1", "1", "1bca", "cab", "H") of the first
               setting whose group equals the row's group; blank if none does.
wyckoff_info   273 rows: the first row of each of the 230 numbers (its
               standard setting), the row after it for the 24 groups with two
               origin choices (the second origin), the 7 rows of the
               rhombohedral groups on rhombohedral axes (":R"), and the short
               symbols of the monoclinic groups 4 to 15 (12 rows: "P 21",
               "P 21/C", ...). "P 2" (number 3) is left out so that the table
               keeps its fixed size of 273 rows. Each row lists the special
               positions of the group from cctbx's Wyckoff table (letter a
               first; the general position is no entry), written as our
               get_symsymbr writes them. In the reference settings the
               representative is cctbx's (the first triplet of the Tables); in
               other settings the constants are reduced into [0,1), and a
               fixed point is the smallest of its orbit.
spg_gen        The generators of one standard setting per number: the row
               that set_spacegroup takes for a bare number (first row; second
               origin; hexagonal axes). The independent centring translations, then the
               rotations the Tables choose as generators for the crystal class
               (listed in GENERATOR_ORDER), each with the smallest translation
               (sum, then x, y, z) that the group has for it. The symbol is the
               short Hermann-Mauguin symbol with the letters after the first in
               lower case. The rows listed in FIXED_GEN are kept as we have them.
"""

from fractions import Fraction as Fr
import itertools
import re
import sys

from cctbx import sgtbx
from cctbx.sgtbx.direct_space_asu import reference_table

SETTINGS = r'''
1: P 1 = P 1; A 1 = A 1; B 1 = B 1; C 1 = C 1; I 1 = I 1; R 1 = R 1; F 1 = F 1
2: P -1 = -P 1; A -1 = -A 1; B -1 = -B 1; C -1 = -C 1; I -1 = -I 1; R -1 = -R 1; F -1 = -F 1
3: P 1 2 1 = P 2y; P 2 = P 2y; P 1 1 2 = P 2; P 2 1 1 = P 2x
4: P 1 21 1 = P 2yb; P 21 = P 2yb; P 1 1 21 = P 2c; P 21 1 1 = P 2xa
5: C 1 2 1 = C 2y; C 2 = C 2y; A 1 2 1 = A 2y; A 2 = A 2y; I 1 2 1 = I 2y; I 2 = I 2y; A 1 1 2 = A 2; B 1 1 2 = B 2; I 1 1 2 = I 2; B 2 1 1 = B 2x; C 2 1 1 = C 2x; I 2 1 1 = I 2x
6: P 1 M 1 = P -2y; P M = P -2y; P 1 1 M = P -2; P M 1 1 = P -2x
7: P 1 C 1 = P -2yc; P C = P -2yc; P 1 N 1 = P -2yac; P N = P -2yac; P 1 A 1 = P -2ya; P A = P -2ya; P 1 1 A = P -2a; P 1 1 N = P -2ab; P 1 1 B = P -2b; P B 1 1 = P -2xb; P N 1 1 = P -2xbc; P C 1 1 = P -2xc
8: C 1 M 1 = C -2y; C M = C -2y; A 1 M 1 = A -2y; A M = A -2y; I 1 M 1 = I -2y; I M = I -2y; A 1 1 M = A -2; B 1 1 M = B -2; I 1 1 M = I -2; B M 1 1 = B -2x; C M 1 1 = C -2x; I M 1 1 = I -2x
9: C 1 C 1 = C -2yc; C C = C -2yc; A 1 N 1 = A -2yac; A N = A -2yac; I 1 A 1 = I -2ya; I A = I -2ya; A 1 A 1 = A -2ya; A A = A -2ya; C 1 N 1 = C -2ybc; C N = C -2ybc; I 1 C 1 = I -2yc; I C = I -2yc; A 1 1 A = A -2a; B 1 1 N = B -2bc; I 1 1 B = I -2b; B 1 1 B = B -2b; A 1 1 N = A -2ac; I 1 1 A = I -2a; B B 1 1 = B -2xb; C N 1 1 = C -2xbc; I C 1 1 = I -2xc; C C 1 1 = C -2xc; B N 1 1 = B -2xbc; I B 1 1 = I -2xb
10: P 1 2/M 1 = -P 2y; P 2/M = -P 2y; P 1 1 2/M = -P 2; P 2/M 1 1 = -P 2x
11: P 1 21/M 1 = -P 2yb; P 21/M = -P 2yb; P 1 1 21/M = -P 2c; P 21/M 1 1 = -P 2xa; B 1 21/M 1 = -B 2yb; B 21/M = -B 2yb
12: C 1 2/M 1 = -C 2y; C 2/M = -C 2y; A 1 2/M 1 = -A 2y; A 2/M = -A 2y; I 1 2/M 1 = -I 2y; I 2/M = -I 2y; A 1 1 2/M = -A 2; B 1 1 2/M = -B 2; I 1 1 2/M = -I 2; B 2/M 1 1 = -B 2x; C 2/M 1 1 = -C 2x; I 2/M 1 1 = -I 2x; F 1 2/M 1 = -F 2y; F 2/M = -F 2y
13: P 1 2/C 1 = -P 2yc; P 2/C = -P 2yc; P 1 2/C 1 = -P 2yc; P 1 2/N 1 = -P 2yac; P 2/N = -P 2yac; P 1 2/A 1 = -P 2ya; P 2/A = -P 2ya; P 1 1 2/A = -P 2a; C 1 1 2/A = -C 2a; P 1 1 2/N = -P 2ab; P 1 1 2/B = -P 2b; P 2/B 1 1 = -P 2xb; P 2/N 1 1 = -P 2xbc; P 2/C 1 1 = -P 2xc
14: P 1 21/C 1 = -P 2ybc; P 21/C = -P 2ybc; B 1 21/C 1 = -B 2ybc; B 21/C = -B 2ybc; P 1 21/N 1 = -P 2yn; P 21/N = -P 2yn; P 1 21/A 1 = -P 2yab; P 21/A = -P 2yab; P 1 1 21/A = -P 2ac; P 1 1 21/N = -P 2n; P 1 1 21/B = -P 2bc; P 21/B 1 1 = -P 2xab; P 21/N 1 1 = -P 2xn; P 21/C 1 1 = -P 2xac
15: C 1 2/C 1 = -C 2yc; C 2/C = -C 2yc; A 1 2/N 1 = -A 2yac; A 2/N = -A 2yac; I 1 2/A 1 = -I 2ya; I 2/A = -I 2ya; A 1 2/A 1 = -A 2ya; A 2/A = -A 2ya; C 1 2/N 1 = -C 2ybc; C 2/N = -C 2ybc; I 1 2/C 1 = -I 2yc; I 2/C = -I 2yc; A 1 1 2/A = -A 2a; B 1 1 2/N = -B 2bc; I 1 1 2/B = -I 2b; B 1 1 2/B = -B 2b; A 1 1 2/N = -A 2ac; I 1 1 2/A = -I 2a; B 2/B 1 1 = -B 2xb; C 2/N 1 1 = -C 2xbc; I 2/C 1 1 = -I 2xc; C 2/C 1 1 = -C 2xc; B 2/N 1 1 = -B 2xbc; I 2/B 1 1 = -I 2xb
16: P 2 2 2 = P 2 2
17: P 2 2 21 = P 2c 2; P 21 2 2 = P 2a 2a; P 2 21 2 = P 2 2b
18: P 21 21 2 = P 2 2ab; P 2 21 21 = P 2bc 2; P 21 2 21 = P 2ac 2ac
19: P 21 21 21 = P 2ac 2ab
20: C 2 2 21 = C 2c 2; A 21 2 2 = A 2a 2a; B 2 21 2 = B 2 2b
21: C 2 2 2 = C 2 2; A 2 2 2 = A 2 2; B 2 2 2 = B 2 2
22: F 2 2 2 = F 2 2
23: I 2 2 2 = I 2 2
24: I 21 21 21 = I 2b 2c
25: P M M 2 = P 2 -2; P 2 M M = P -2 2; P M 2 M = P -2 -2
26: P M C 21 = P 2c -2; P C M 21 = P 2c -2c; P 21 M A = P -2a 2a; P 21 A M = P -2 2a; P B 21 M = P -2 -2b; P M 21 B = P -2b -2
27: P C C 2 = P 2 -2c; P 2 A A = P -2a 2; P B 2 B = P -2b -2b
28: P M A 2 = P 2 -2a; P B M 2 = P 2 -2b; P 2 M B = P -2b 2; P 2 C M = P -2c 2; P C 2 M = P -2c -2c; P M 2 A = P -2a -2a
29: P C A 21 = P 2c -2ac; P B C 21 = P 2c -2b; P 21 A B = P -2b 2a; P 21 C A = P -2ac 2a; P C 21 B = P -2bc -2c; P B 21 A = P -2a -2ab
30: P N C 2 = P 2 -2bc; P C N 2 = P 2 -2ac; P 2 N A = P -2ac 2; P 2 A N = P -2ab 2; P B 2 N = P -2ab -2ab; P N 2 B = P -2bc -2bc
31: P M N 21 = P 2ac -2; P N M 21 = P 2bc -2bc; P 21 M N = P -2ab 2ab; P 21 N M = P -2 2ac; P N 21 M = P -2 -2bc; P M 21 N = P -2ab -2
32: P B A 2 = P 2 -2ab; P 2 C B = P -2bc 2; P C 2 A = P -2ac -2ac
33: P N A 21 = P 2c -2n; P B N 21 = P 2c -2ab; P 21 N B = P -2bc 2a; P 21 C N = P -2n 2a; P C 21 N = P -2n -2ac; P N 21 A = P -2ac -2n
34: P N N 2 = P 2 -2n; P 2 N N = P -2n 2; P N 2 N = P -2n -2n
35: C M M 2 = C 2 -2; A 2 M M = A -2 2; B M 2 M = B -2 -2
36: C M C 21 = C 2c -2; C C M 21 = C 2c -2c; A 21 M A = A -2a 2a; A 21 A M = A -2 2a; B B 21 M = B -2 -2b; B M 21 B = B -2b -2
37: C C C 2 = C 2 -2c; A 2 A A = A -2a 2; B B 2 B = B -2b -2b
38: A M M 2 = A 2 -2; B M M 2 = B 2 -2; B 2 M M = B -2 2; C 2 M M = C -2 2; C M 2 M = C -2 -2; A M 2 M = A -2 -2
39: A B M 2 = A 2 -2c; B M A 2 = B 2 -2c; B 2 C M = B -2c 2; C 2 M B = C -2b 2; C M 2 A = C -2b -2b; A C 2 M = A -2c -2c
40: A M A 2 = A 2 -2a; B B M 2 = B 2 -2b; B 2 M B = B -2b 2; C 2 C M = C -2c 2; C C 2 M = C -2c -2c; A M 2 A = A -2a -2a
41: A B A 2 = A 2 -2ac; B B A 2 = B 2 -2bc; B 2 C B = B -2bc 2; C 2 C B = C -2bc 2; C C 2 A = C -2bc -2bc; A C 2 A = A -2ac -2ac
42: F M M 2 = F 2 -2; F 2 M M = F -2 2; F M 2 M = F -2 -2
43: F D D 2 = F 2 -2d; F 2 D D = F -2d 2; F D 2 D = F -2d -2d
44: I M M 2 = I 2 -2; I 2 M M = I -2 2; I M 2 M = I -2 -2
45: I B A 2 = I 2 -2c; I 2 C B = I -2a 2; I C 2 A = I -2b -2b
46: I M A 2 = I 2 -2a; I B M 2 = I 2 -2b; I 2 M B = I -2b 2; I 2 C M = I -2c 2; I C 2 M = I -2c -2c; I M 2 A = I -2a -2a
47: P M M M = -P 2 2
48: P N N N:1 = P 2 2 -1n; P N N N = -P 2ab 2bc
49: P C C M = -P 2 2c; P M A A = -P 2a 2; P B M B = -P 2b 2b
50: P B A N:1 = P 2 2 -1ab; P B A N = -P 2ab 2b; P N C B:1 = P 2 2 -1bc; P N C B = -P 2b 2bc; P C N A:1 = P 2 2 -1ac; P C N A = -P 2a 2c
51: P M M A = -P 2a 2a; P M M B = -P 2b 2; P B M M = -P 2 2b; P C M M = -P 2c 2c; P M C M = -P 2c 2; P M A M = -P 2 2a
52: P N N A = -P 2a 2bc; P N N B = -P 2b 2n; P B N N = -P 2n 2b; P C N N = -P 2ab 2c; P N C N = -P 2ab 2n; P N A N = -P 2n 2bc
53: P M N A = -P 2ac 2; P N M B = -P 2bc 2bc; P B M N = -P 2ab 2ab; P C N M = -P 2 2ac; P N C M = -P 2 2bc; P M A N = -P 2ab 2
54: P C C A = -P 2a 2ac; P C C B = -P 2b 2c; P B A A = -P 2a 2b; P C A A = -P 2ac 2c; P B C B = -P 2bc 2b; P B A B = -P 2b 2ab
55: P B A M = -P 2 2ab; P M C B = -P 2bc 2; P C M A = -P 2ac 2ac
56: P C C N = -P 2ab 2ac; P N A A = -P 2ac 2bc; P B N B = -P 2bc 2ab
57: P B C M = -P 2c 2b; P C A M = -P 2c 2ac; P M C A = -P 2ac 2a; P M A B = -P 2b 2a; P B M A = -P 2a 2ab; P C M B = -P 2bc 2c
58: P N N M = -P 2 2n; P M N N = -P 2n 2; P N M N = -P 2n 2n
59: P M M N:1 = P 2 2ab -1ab; P M M N = -P 2ab 2a; P N M M:1 = P 2bc 2 -1bc; P N M M = -P 2c 2bc; P M N M:1 = P 2ac 2ac -1ac; P M N M = -P 2c 2a
60: P B C N = -P 2n 2ab; P C A N = -P 2n 2c; P N C A = -P 2a 2n; P N A B = -P 2bc 2n; P B N A = -P 2ac 2b; P C N B = -P 2b 2ac
61: P B C A = -P 2ac 2ab; P C A B = -P 2bc 2ac
62: P N M A = -P 2ac 2n; P M N B = -P 2bc 2a; P M N B:1 = P 2ac 2ab -1ab; P B N M = -P 2c 2ab; P B N M:1 = P 2c 2n -1c; P C M N = -P 2n 2ac; P M C N = -P 2n 2a; P M C N:1 = P 2bc 2a -1a; P N A M = -P 2c 2n
63: C M C M = -C 2c 2; C C M M = -C 2c 2c; A M M A = -A 2a 2a; A M A M = -A 2 2a; B B M M = -B 2 2b; B M M B = -B 2b 2; B M M B:1 = B 2ab 2c -1ac
64: C M C A = -C 2bc 2; C C M B = -C 2bc 2bc; C C M B:1 = C 2bc 2n -1ab; A B M A = -A 2ac 2ac; A C A M = -A 2 2ac; B B C M = -B 2 2bc; B M A B = -B 2bc 2
65: C M M M = -C 2 2; A M M M = -A 2 2; B M M M = -B 2 2
66: C C C M = -C 2 2c; A M A A = -A 2a 2; B A M B = -B 2b 2b
67: C M M A = -C 2b 2; C M M B = -C 2b 2b; A B M M = -A 2c 2c; A C M M = -A 2 2c; B M C M = -B 2 2c; B M A M = -B 2c 2
68: C C C A:1 = C 2 2 -1bc; C C C A = -C 2b 2bc; C C C B:1 = C 2 2 -1bc; C C C B = -C 2b 2c; A B A A:1 = A 2 2 -1ac; A B A A = -A 2a 2c; A C A A:1 = A 2 2 -1ac; A C A A = -A 2ac 2c; B B C B:1 = B 2 2 -1bc; B B C B = -B 2bc 2b; B B A B:1 = B 2 2 -1bc; B B A B = -B 2b 2bc
69: F M M M = -F 2 2
70: F D D D:1 = F 2 2 -1d; F D D D = -F 2uv 2vw
71: I M M M = -I 2 2
72: I B A M = -I 2 2ab; I M C B = -I 2a 2; I C M A:1 = I 2 2 -1b; I C M A = -I 2b 2b
73: I B C A = -I 2b 2c; I C A B = -I 2a 2b
74: I M M A = -I 2b 2; I M M B = -I 2a 2a; I B M M = -I 2c 2c; I C M M = -I 2 2b; I M C M = -I 2 2a; I M A M = -I 2c 2
75: P 4 = P 4
76: P 41 = P 4w
77: P 42 = P 4c
78: P 43 = P 4cw
79: I 4 = I 4
80: I 41 = I 4bw
81: P -4 = P -4
82: I -4 = I -4
83: P 4/M = -P 4
84: P 42/M = -P 4c
85: P 4/N:1 = P 4ab -1ab; P 4/N = -P 4a
86: P 42/N:1 = P 4n -1n; P 42/N = -P 4bc
87: I 4/M = -I 4
88: I 41/A:1 = I 4bw -1bw; I 41/A = -I 4ad
89: P 4 2 2 = P 4 2
90: P 4 21 2 = P 4ab 2ab; C 4 2 21 = C 4b 2
91: P 41 2 2 = P 4w 2c
92: P 41 21 2 = P 4abw 2nw
93: P 42 2 2 = P 4c 2
94: P 42 21 2 = P 4n 2n
95: P 43 2 2 = P 4cw 2c
96: P 43 21 2 = P 4nw 2abw
97: I 4 2 2 = I 4 2
98: I 41 2 2 = I 4bw 2bw
99: P 4 M M = P 4 -2
100: P 4 B M = P 4 -2ab
101: P 42 C M = P 4c -2c
102: P 42 N M = P 4n -2n
103: P 4 C C = P 4 -2c
104: P 4 N C = P 4 -2n
105: P 42 M C = P 4c -2
106: P 42 B C = P 4c -2ab
107: I 4 M M = I 4 -2
108: I 4 C M = I 4 -2c
109: I 41 M D = I 4bw -2
110: I 41 C D = I 4bw -2c
111: P -4 2 M = P -4 2
112: P -4 2 C = P -4 2c
113: P -4 21 M = P -4 2ab
114: P -4 21 C = P -4 2n
115: P -4 M 2 = P -4 -2
116: P -4 C 2 = P -4 -2c
117: P -4 B 2 = P -4 -2ab; C -4 B 2 = C -4 2b
118: P -4 N 2 = P -4 -2n
119: I -4 M 2 = I -4 -2
120: I -4 C 2 = I -4 -2c
121: I -4 2 M = I -4 2
122: I -4 2 D = I -4 2bw; F -4 D 2 = F -4 -2cd
123: P 4/M M M = -P 4 2
124: P 4/M C C = -P 4 2c
125: P 4/N B M:1 = P 4 2 -1ab; P 4/N B M = -P 4a 2b
126: P 4/N N C:1 = P 4 2 -1n; P 4/N N C = -P 4a 2bc
127: P 4/M B M = -P 4 2ab
128: P 4/M N C = -P 4 2n
129: P 4/N M M:1 = P 4ab 2ab -1ab; P 4/N M M = -P 4a 2a
130: P 4/N C C:1 = P 4ab 2n -1ab; P 4/N C C = -P 4a 2ac
131: P 42/M M C = -P 4c 2
132: P 42/M C M = -P 4c 2c
133: P 42/N B C:1 = P 4n 2c -1n; P 42/N B C = -P 4ac 2b
134: P 42/N N M:1 = P 4n 2 -1n; P 42/N N M = -P 4ac 2bc
135: P 42/M B C = -P 4c 2ab
136: P 42/M N M = -P 4n 2n
137: P 42/N M C:1 = P 4n 2n -1n; P 42/N M C = -P 4ac 2a
138: P 42/N C M:1 = P 4n 2ab -1n; P 42/N C M = -P 4ac 2ac
139: I 4/M M M = -I 4 2; F 4/M M M = -F 4 2
140: I 4/M C M = -I 4 2c
141: I 41/A M D:1 = I 4bw 2bw -1bw; I 41/A M D = -I 4bd 2
142: I 41/A C D:1 = I 4bw 2aw -1bw; I 41/A C D = -I 4bd 2c
143: P 3 = P 3
144: P 31 = P 31
145: P 32 = P 32
146: R 3 = R 3; R 3:R = P 3*
147: P -3 = -P 3
148: R -3 = -R 3; R -3:R = -P 3*
149: P 3 1 2 = P 3 2
150: P 3 2 1 = P 3 2"
151: P 31 1 2 = P 31 2c (0 0 1)
152: P 31 2 1 = P 31 2"
153: P 32 1 2 = P 32 2c (0 0 -1)
154: P 32 2 1 = P 32 2"
155: R 3 2 = R 3 2"; R 3 2:R = P 3* 2
156: P 3 M 1 = P 3 -2"
157: P 3 1 M = P 3 -2
158: P 3 C 1 = P 3 -2"c
159: P 3 1 C = P 3 -2c
160: R 3 M = R 3 -2"; R 3 M:R = P 3* -2
161: R 3 C = R 3 -2"c; R 3 C:R = P 3* -2n
162: P -3 1 M = -P 3 2
163: P -3 1 C = -P 3 2c
164: P -3 M 1 = -P 3 2"
165: P -3 C 1 = -P 3 2"c
166: R -3 M = -R 3 2"; R -3 M:R = -P 3* 2
167: R -3 C = -R 3 2"c; R -3 C:R = -P 3* 2n
168: P 6 = P 6
169: P 61 = P 61
170: P 65 = P 65
171: P 62 = P 62
172: P 64 = P 64
173: P 63 = P 6c
174: P -6 = P -6
175: P 6/M = -P 6
176: P 63/M = -P 6c
177: P 6 2 2 = P 6 2
178: P 61 2 2 = P 61 2 (0 0 -1)
179: P 65 2 2 = P 65 2 (0 0 1)
180: P 62 2 2 = P 62 2c (0 0 1)
181: P 64 2 2 = P 64 2c (0 0 -1)
182: P 63 2 2 = P 6c 2c
183: P 6 M M = P 6 -2
184: P 6 C C = P 6 -2c
185: P 63 C M = P 6c -2
186: P 63 M C = P 6c -2c
187: P -6 M 2 = P -6 2
188: P -6 C 2 = P -6c 2
189: P -6 2 M = P -6 -2
190: P -6 2 C = P -6c -2c
191: P 6/M M M = -P 6 2
192: P 6/M C C = -P 6 2c
193: P 63/M C M = -P 6c 2
194: P 63/M M C = -P 6c 2c
195: P 2 3 = P 2 2 3
196: F 2 3 = F 2 2 3
197: I 2 3 = I 2 2 3
198: P 21 3 = P 2ac 2ab 3
199: I 21 3 = I 2b 2c 3
200: P M -3 = -P 2 2 3; P M 3 = -P 2 2 3
201: P N -3:1 = P 2 2 3 -1n; P N -3 = -P 2ab 2bc 3; P N 3 = -P 2ab 2bc 3
202: F M -3 = -F 2 2 3; F M 3 = -F 2 2 3
203: F D -3:1 = F 2 2 3 -1d; F D -3 = -F 2uv 2vw 3; F D 3 = -F 2uv 2vw 3
204: I M -3 = -I 2 2 3; I M 3 = -I 2 2 3
205: P A -3 = -P 2ac 2ab 3; P A 3 = -P 2ac 2ab 3
206: I A -3 = -I 2b 2c 3; I A 3 = -I 2b 2c 3
207: P 4 3 2 = P 4 2 3
208: P 42 3 2 = P 4n 2 3
209: F 4 3 2 = F 4 2 3
210: F 41 3 2 = F 4d 2 3
211: I 4 3 2 = I 4 2 3
212: P 43 3 2 = P 4acd 2ab 3
213: P 41 3 2 = P 4bd 2ab 3
214: I 41 3 2 = I 4bd 2c 3
215: P -4 3 M = P -4 2 3
216: F -4 3 M = F -4 2 3
217: I -4 3 M = I -4 2 3
218: P -4 3 N = P -4n 2 3
219: F -4 3 C = F -4c 2 3
220: I -4 3 D = I -4bd 2c 3
221: P M -3 M = -P 4 2 3; P M 3 M = -P 4 2 3
222: P N -3 N:1 = P 4 2 3 -1n; P N -3 N = -P 4a 2bc 3; P N 3 N = -P 4a 2bc 3
223: P M -3 N = -P 4n 2 3; P M 3 N = -P 4n 2 3
224: P N -3 M:1 = P 4n 2 3 -1n; P N -3 M = -P 4bc 2bc 3; P N 3 M = -P 4bc 2bc 3
225: F M -3 M = -F 4 2 3; F M 3 M = -F 4 2 3
226: F M -3 C = -F 4c 2 3; F M 3 C = -F 4c 2 3
227: F D -3 M:1 = F 4d 2 3 -1d; F D -3 M = -F 4vw 2vw 3; F D 3 M = -F 4vw 2vw 3
228: F D -3 C:1 = F 4d 2 3 -1cd; F D -3 C = -F 4cvw 2vw 3; F D 3 C = -F 4cvw 2vw 3
229: I M -3 M = -I 4 2 3; I M 3 M = -I 4 2 3
230: I A -3 D = -I 4bd 2c 3; I A 3 D = -I 4bd 2c 3
'''

# Rows whose laue, pg, asu and inf_extra we have from the Tables directly.
FIXED_ROWS = {
    1: (1, 1, (0, 0, 0, 24, 24, 24), ''),
    8: (1, 2, (0, 0, 0, 12, 24, 24), ''),
    125: (2, 5, (0, 0, 0, 24, 6, 24), 'b1'),
    126: (2, 5, (0, 0, 0, 24, 6, 24), 'b1'),
    129: (2, 5, (0, 0, 0, 24, 6, 24), 'b2'),
    133: (2, 5, (0, 0, 0, 24, 24, 6), 'c1'),
    283: (3, 10, (0, 0, 0, 6, 12, 24), '1'),
    390: (3, 10, (0, 0, 0, 12, 12, 6), '1bca'),
    422: (4, 13, (0, 0, 0, 12, 24, 6), '1'),
    464: (5, 18, (0, 0, 0, 12, 12, 12), ''),
    466: (5, 18, (0, 0, 0, 12, 12, 12), '1'),
}

# Rows of spg_gen that we have from the Tables directly.
FIXED_GEN = {
    1: 'P 1       : x,y,z',
    2: 'P -1      : -x,-y,-z',
    3: 'P 2       : -x,y,-z',
    14: 'P 21/c    : -x,y+1/2,-z+1/2; -x,-y,-z',
    191: 'P 6/m m m : -y,x-y,z; -x,-y,z; y,x,-z; -x,-y,-z',
    230: 'I a -3 d  : x+1/2,y+1/2,z+1/2; -x+1/2,-y,z+1/2; -x,y+1/2,-z+1/2; z,x,y; '
         'y+3/4,x+1/4,-z+1/4; -x,-y,-z',
}

LAUE_CLASS = ['-1', '2/m', 'mmm', '4/m', '4/mmm', '-3 R', '-3m R', '-3', '-3m1', '-31m',
              '6/m', '6/mmm', 'm-3', 'm-3m', 'm3', 'm3m']
POINT_GROUP = ['1', '-1', '2', 'm', '2/m', '222', 'mm2', 'm2m', '2mm', 'mmm', '4', '-4', '4/m',
               '422', '4mm', '-42m', '-4m2', '4/mmm', '3', '-3', '32', '3m', '-3m', '312', '31m',
               '-31m', '6', '-6', '6/m', '622', '6mm', '-62m', '-6m2', '6/mmm', '23', 'm-3', '432',
               '-43m', 'm-3m', 'm3', 'm3m']

IDENTITY = ((1, 0, 0), (0, 1, 0), (0, 0, 1))
ROT = {
    '-1': ((-1, 0, 0), (0, -1, 0), (0, 0, -1)),
    '2z': ((-1, 0, 0), (0, -1, 0), (0, 0, 1)),
    '2y': ((-1, 0, 0), (0, 1, 0), (0, 0, -1)),
    'my': ((1, 0, 0), (0, -1, 0), (0, 0, 1)),
    'mz': ((1, 0, 0), (0, 1, 0), (0, 0, -1)),
    '4z': ((0, -1, 0), (1, 0, 0), (0, 0, 1)),
    '-4z': ((0, 1, 0), (-1, 0, 0), (0, 0, -1)),
    '3z': ((0, -1, 0), (1, -1, 0), (0, 0, 1)),
    '3d': ((0, 0, 1), (1, 0, 0), (0, 1, 0)),
    '2xy': ((0, 1, 0), (1, 0, 0), (0, 0, -1)),
    '2x-y': ((0, -1, 0), (-1, 0, 0), (0, 0, -1)),
    'mxy': ((0, -1, 0), (-1, 0, 0), (0, 0, 1)),
    'mx-y': ((0, 1, 0), (1, 0, 0), (0, 0, 1)),
}
# The rotations taken as generators, by crystal family, in the order of the
# Tables; a rotation is taken when the group has it and the ones taken so far
# don't generate it yet.
GENERATOR_ORDER = {
    'triclinic': ['-1'],
    'monoclinic': ['2y', '-1', 'my'],
    'orthorhombic': ['2z', '2y', '-1', 'my'],
    'tetragonal4': ['2z', '4z', '2y', '-1', 'my'],
    'tetragonal-4': ['2z', '-4z', '2y', 'my'],
    'trigonal': ['3z', '2xy', '2x-y', '-1', 'mxy', 'mx-y'],
    'hexagonal': ['3z', '2z', '2xy', '-1', 'mxy', 'mz'],
    'cubic': ['2z', '2y', '3d', '2xy', '-1', 'mx-y'],
}


def parse_settings():
    rows = []
    for line in SETTINGS.strip().splitlines():
        number, rest = line.split(':', 1)
        for item in rest.split(';'):
            hm, hall = item.split(' = ')
            rows.append((int(number), hm.strip(), hall.strip()))
    return rows


# ---------------------------------------------------------------- operators

def group_info(hall):
    return sgtbx.space_group_info(symbol='Hall: ' + hall)


def ops_of(group):
    """All operators of the group as (rotation, translation mod 1), exact."""
    out = []
    for op in group.all_ops():
        rn, rd = op.r().num(), op.r().den()
        tn, td = op.t().num(), op.t().den()
        rot = tuple(tuple(rn[3 * i + j] // rd for j in range(3)) for i in range(3))
        tr = tuple(Fr(tn[i], td) % 1 for i in range(3))
        out.append((rot, tr))
    return out


def matmul(a, b):
    return tuple(tuple(sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)) for i in range(3))


def det(m):
    return (m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1])
            - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0])
            + m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]))


def trace(m):
    return m[0][0] + m[1][1] + m[2][2]


def order(m):
    """Signed order of a rotation from its trace and determinant."""
    t, d = trace(m), det(m)
    proper = {-1: 2, 0: 3, 1: 4, 2: 6, 3: 1}
    improper = {-3: -1, -2: -6, -1: -4, 0: -3, 1: -2}
    return (proper if d == 1 else improper).get(t, 0)


def closure(rotations):
    group = {IDENTITY}
    frontier = list(rotations)
    while frontier:
        r = frontier.pop()
        if r in group:
            continue
        group.add(r)
        for g in list(group):
            for p in (matmul(r, g), matmul(g, r)):
                if p not in group:
                    frontier.append(p)
    return group


def axis(m):
    """Direction of a two-fold rotation, or the normal of a mirror, as a
    primitive integer vector with a positive first non-zero component."""
    if det(m) < 0:
        m = tuple(tuple(-x for x in row) for row in m)
    cols = [tuple(m[i][j] + (1 if i == j else 0) for i in range(3)) for j in range(3)]
    v = next(c for c in cols if any(c))
    g = max(abs(x) for x in v if x)
    from math import gcd
    for x in v:
        g = gcd(g, abs(x))
    v = tuple(x // g for x in v)
    if next(x for x in v if x) < 0:
        v = tuple(-x for x in v)
    return v


A_TYPE = {(1, 0, 0), (0, 1, 0), (1, 1, 0)}  # hexagonal [100], [010], [110]


def point_group_name(rotations, hm, cctbx_class):
    """Name of the point group in the orientation of the setting."""
    twofolds = [axis(r) for r in rotations if order(r) == 2]
    mirrors = [axis(r) for r in rotations if order(r) == -2]
    name = cctbx_class
    if name == 'mm2':
        a = twofolds[0]
        name = {(0, 0, 1): 'mm2', (0, 1, 0): 'm2m', (1, 0, 0): '2mm'}[a]
    elif name in ('-42m', '-4m2'):
        # the two-fold axes other than the square of the -4, along z
        secondary = [a for a in twofolds if a != (0, 0, 1)]
        name = '-42m' if secondary[0] in {(1, 0, 0), (0, 1, 0)} else '-4m2'
    elif name in ('-62m', '-6m2'):
        name = '-62m' if twofolds[0] in A_TYPE else '-6m2'
    elif name in ('32', '321', '312') and hm[0] != 'R':
        name = '32' if twofolds[0] in A_TYPE else '312'
    elif name in ('3m', '3m1', '31m') and hm[0] != 'R':
        name = '3m' if mirrors[0] in A_TYPE else '31m'
    elif name in ('-3m', '-3m1', '-31m') and hm[0] != 'R':
        name = '-3m' if twofolds[0] in A_TYPE else '-31m'
    elif name in ('32', '321', '312'):
        name = '32'
    elif name in ('3m', '3m1', '31m'):
        name = '3m'
    elif name in ('-3m', '-3m1', '-31m'):
        name = '-3m'
    if name in ('m-3', 'm-3m') and '-3' not in hm:
        name = name.replace('-', '')
    return name


def laue_name(pg, hm):
    rhombohedral = hm[0] == 'R'
    if pg in ('1', '-1'):
        return '-1'
    if pg in ('2', 'm', '2/m'):
        return '2/m'
    if pg in ('222', 'mm2', 'm2m', '2mm', 'mmm'):
        return 'mmm'
    if pg in ('4', '-4', '4/m'):
        return '4/m'
    if pg in ('422', '4mm', '-42m', '-4m2', '4/mmm'):
        return '4/mmm'
    if pg in ('3', '-3'):
        return '-3 R' if rhombohedral else '-3'
    if pg in ('32', '3m', '-3m'):
        return '-3m R' if rhombohedral else '-3m1'
    if pg in ('312', '31m', '-31m'):
        return '-31m'
    if pg in ('6', '-6', '6/m'):
        return '6/m'
    if pg in ('622', '6mm', '-6m2', '-62m', '6/mmm'):
        return '6/mmm'
    if pg in ('23', 'm-3'):
        return 'm-3'
    if pg in ('432', '-43m', 'm-3m'):
        return 'm-3m'
    return pg  # m3, m3m


CCTBX_LAUE = {'-3 R': '-3', '-3m R': '-3m', '-3m1': '-3m', '-31m': '-3m', 'm3': 'm-3',
              'm3m': 'm-3m'}


# --------------------------------------------------------- asymmetric units

LIMITS = [3, 4, 6, 8, 12, 16, 18, 24]  # in 24ths


def box_covers(ops, hi, points):
    """True when every point has an image inside the box 0..hi (24ths)."""
    import numpy as np
    box = np.array(hi, dtype=float) / 24.0
    covered = np.zeros(len(points), dtype=bool)
    for rot, tr in ops:
        r = np.array(rot, dtype=float)
        t = np.array([float(x) for x in tr])
        img = np.mod(points @ r.T + t + 1.0e-9, 1.0) - 1.0e-9
        covered |= np.all((img >= -1.0e-6) & (img <= box + 1.0e-6), axis=1)
        if covered.all():
            return True
    return bool(covered.all())


def grid_points(n):
    import numpy as np
    g = (np.arange(n) + 0.5) / n
    return np.array(list(itertools.product(g, g, g)))


COARSE = None
FINE = None


def searched_asu(ops):
    global COARSE, FINE
    if COARSE is None:
        COARSE, FINE = grid_points(8), grid_points(24)
    need = Fr(1, len(ops))
    candidates = []
    for box in itertools.product(LIMITS, repeat=3):
        vol = Fr(box[0] * box[1] * box[2], 24 ** 3)
        if vol >= need:
            candidates.append((vol, sum(1 for x in box if x < 24), box))
    candidates.sort()
    for _, _, box in candidates:
        if box_covers(ops, box, COARSE) and box_covers(ops, box, FINE):
            return (0, 0, 0) + box
    raise SystemExit('no asymmetric unit found')


def cctbx_asu(sgi):
    t = sgi.type()
    asu = reference_table.get_asu(t.number()).change_basis(t.cb_op().inverse())
    lo = [Fr(str(x)) for x in asu.box_min()]
    hi = [Fr(str(x)) for x in asu.box_max()]
    box = [x * 24 for x in lo + hi]
    if all(x.denominator == 1 and 0 <= x <= 24 for x in box):
        return tuple(int(x) for x in box)
    return None


# ------------------------------------------------------------ operator texts

def fraction_2dig(v):
    """The text that get_fraction_2dig writes for v."""
    v = Fr(v)
    if abs(v - round(v)) <= Fr(1, 100000):
        n = int(round(v))
        return '+%d' % n if n > 0 else '%d' % n
    av = abs(v)
    for n in range(1, 25):
        for d in range(2, 25):
            if abs(Fr(n, d) - av) <= Fr(1, 100000):
                return ('+' if v > 0 else '-') + '%d/%d' % (n, d)
    return ('+%9.4f' % float(v) if v > 0 else '%10.4f' % float(v)).replace(' ', '')


def symsymbr(rot, tr):
    """The text that get_symsymbr writes for a position (rational rotation)."""
    rows = []
    for i in range(3):
        text = ''
        for j, letter in enumerate('xyz'):
            c = Fr(rot[i][j])
            if c == 0:
                continue
            s = fraction_2dig(c)
            unit = abs(abs(c) - 1) <= Fr(2, 10000)
            if not text:
                s = ('-' if s == '-1' else '') if unit else s.lstrip('+')
            elif unit:
                s = s[0]
            if '/' in s:
                p = s.index('/')
                s = s[:p - 1] + letter + s[p:] if s[p - 1] == '1' else s[:p] + letter + s[p:]
            else:
                s += letter
            text += s
        t = Fr(tr[i])
        if not (abs(t) <= Fr(2, 10000) and text):
            s = fraction_2dig(t)
            if sum(abs(Fr(x)) for x in rot[i]) <= Fr(6, 10000) and s.startswith('+'):
                s = s[1:]
            text += s
        rows.append(text)
    return ', '.join(rows).replace(' ', '')


def symsymbi(rot, tr):
    """The text that get_symsymbi writes for an operator."""
    rows = []
    for i in range(3):
        text = ''
        for j, letter in enumerate('xyz'):
            c = rot[i][j]
            if c == 1:
                text += '+' + letter
            elif c == -1:
                text += '-' + letter
            elif c != 0:
                text += ('+%d' % c if c > 0 else '%d' % c) + letter
        if abs(tr[i]) > Fr(2, 10000):
            text += fraction_2dig(tr[i])
        rows.append(text.lstrip('+') if text.startswith('+') else text)
    return ','.join(rows)


# ------------------------------------------------------------------ spgr_info

def tidy_key(ops):
    return frozenset(ops)


def setting_codes():
    codes = {}
    for s in sgtbx.space_group_symbol_iterator():
        ext = s.extension()
        code = ('' if ext == '\x00' else ext) + s.qualifier()
        key = tidy_key(ops_of(sgtbx.space_group(s.hall())))
        codes.setdefault(key, code)
    return codes


def spgr_columns(rows):
    codes = setting_codes()
    out = []
    for index, (number, hm, hall) in enumerate(rows, start=1):
        sgi = group_info(hall)
        group = sgi.group()
        if sgi.type().number() != number:
            raise SystemExit('row %d: %s is number %d' % (index, hall, sgi.type().number()))
        ops = ops_of(group)
        rotations = sorted({r for r, _ in ops})
        pg = point_group_name(rotations, hm, str(group.point_group_type()))
        laue = laue_name(pg, hm)
        if CCTBX_LAUE.get(laue, laue) != str(group.laue_group_type()):
            raise SystemExit('row %d: Laue %s against %s' % (index, laue, group.laue_group_type()))
        asu = cctbx_asu(sgi) or searched_asu(ops)
        inf = codes.get(tidy_key(ops), '')
        columns = (LAUE_CLASS.index(laue) + 1, POINT_GROUP.index(pg) + 1, asu, inf)
        if index in FIXED_ROWS:
            fixed = FIXED_ROWS[index]
            if fixed[:2] != columns[:2] or fixed[3] != columns[3] or fixed[2] != asu:
                print('row %d %s: computed %s, kept %s' % (index, hm, columns, fixed), file=sys.stderr)
            columns = fixed
        out.append((number, hm, hall) + columns)
    return out


# --------------------------------------------------------------- wyckoff_info

def wyckoff_rows(rows):
    chosen = []
    first = {}
    for index, (number, hm, _) in enumerate(rows):
        first.setdefault(number, index)
    for number in range(1, 231):
        i = first[number]
        chosen.append(i)
        if rows[i][1].endswith(':1'):
            chosen.append(i + 1)
        if 4 <= number <= 15:
            chosen.append(i + 1)
    chosen += [i for i, (_, hm, _) in enumerate(rows) if hm.endswith(':R')]
    chosen.sort()
    if len(chosen) != 273:
        raise SystemExit('%d Wyckoff rows' % len(chosen))
    return chosen


def parse_position(text):
    """Rotation and translation of a position text such as "x,x+1/4,-y+1"."""
    rot, tr = [], []
    for field in text.split(','):
        row, const = [Fr(0)] * 3, Fr(0)
        for sign, number, letter in re.findall(r'([+-]?)([0-9/]*)\*?([xyz]?)', field.replace(' ', '')):
            if not number and not letter:
                continue
            value = Fr(number) if number else Fr(1)
            value = -value if sign == '-' else value
            if letter:
                row['xyz'.index(letter)] += value
            else:
                const += value
        rot.append(row)
        tr.append(const)
    return rot, tr


def wyckoff_texts(hall):
    sgi = group_info(hall)
    group = sgi.group()
    ops = ops_of(group)
    reference = sgi.type().cb_op().is_identity_op()
    table = sgi.wyckoff_table()
    texts = []
    for k in reversed(range(table.size())):
        pos = table.position(k)
        if pos.multiplicity() == group.order_z():
            continue
        rot, tr = parse_position(str(pos.special_op_simplified()))
        tr = [x % 1 for x in tr]
        if any(x.denominator != 1 for row in rot for x in row):
            raise SystemExit('%s: non-integer position %s' % (hall, op))
        if not reference and all(x == 0 for row in rot for x in row):
            images = []
            for r, t in ops:
                images.append(tuple((sum(r[i][j] * tr[j] for j in range(3)) + t[i]) % 1
                                    for i in range(3)))
            tr = list(min(images))
        text = symsymbr(rot, tr)
        if len(text) > 15:
            raise SystemExit('%s: position text too long: %s' % (hall, text))
        texts.append((text, pos.multiplicity()))
    return texts


# -------------------------------------------------------------------- spg_gen

def family(cctbx_class, rotations):
    if cctbx_class in ('1', '-1'):
        return 'triclinic'
    if cctbx_class in ('2', 'm', '2/m'):
        return 'monoclinic'
    if cctbx_class in ('222', 'mm2', 'mmm'):
        return 'orthorhombic'
    if cctbx_class in ('4', '-4', '4/m', '422', '4mm', '-42m', '4/mmm'):
        return 'tetragonal4' if ROT['4z'] in rotations else 'tetragonal-4'
    if cctbx_class in ('23', 'm-3', '432', '-43m', 'm-3m'):
        return 'cubic'
    if ROT['2z'] in rotations or ROT['mz'] in rotations:
        return 'hexagonal'
    return 'trigonal'


def generator_text(number, hm, hall):
    group = group_info(hall).group()
    ops = ops_of(group)
    rotations = {r for r, _ in ops}
    chosen = []
    for name in GENERATOR_ORDER[family(str(group.point_group_type()), rotations)]:
        r = ROT[name]
        if r in rotations and r not in closure(chosen):
            chosen.append(r)
    if closure(chosen) != rotations:
        raise SystemExit('%d: generators incomplete' % number)
    gens, spanned = [], {(0, 0, 0)}
    for r, t in ops:
        if r == IDENTITY and t not in spanned:
            gens.append(symsymbi(IDENTITY, t))
            while True:
                sums = {tuple((a + b) % 1 for a, b in zip(u, v)) for u in spanned for v in spanned}
                if sums <= spanned and t in spanned:
                    break
                spanned |= sums | {t}
    for r in chosen:
        t = min((t for rr, t in ops if rr == r), key=lambda t: (sum(t), t))
        gens.append(symsymbi(r, t))
    symbol = hm[0] + hm[1:].lower()
    if len(symbol) > 10:
        raise SystemExit('%d: symbol too long' % number)
    text = '%-10s: %s' % (symbol, '; '.join(gens or ['x,y,z']))
    if number in FIXED_GEN:
        if FIXED_GEN[number] != text:
            print('spg_gen %d: computed %s, kept %s' % (number, text, FIXED_GEN[number]),
                  file=sys.stderr)
        text = FIXED_GEN[number]
    if len(text) > 120:
        raise SystemExit('%d: generator text too long' % number)
    return text


def gen_rows(rows):
    out = []
    for number in range(1, 231):
        candidates = [r for r in rows if r[0] == number]
        row = candidates[0]
        if row[1].endswith(':1') or 3 <= number <= 15:
            row = candidates[1]
        out.append(generator_text(*row))
    return out


# --------------------------------------------------------------------- output

HEADER = '// Generated by tools/gen_symmetry_tables.py from published International Tables\n' \
         '// data; edit the script, not this file.\n'


def c_string(s):
    return '"' + s.replace('\\', '\\\\').replace('"', '\\"') + '"'


def write_spgr(path, table):
    with open(path, 'w') as f:
        f.write(HEADER + '#include "crystal/vant_symmetry_tables_data.h"\n\n')
        f.write('const spgr_info_row spgr_info_rows[spgr_info_row_count] = {\n')
        for n, hm, hall, laue, pg, asu, inf in table:
            f.write('    {%d, %s, %s, %d, %d, {%s}, %s},\n' % (
                n, c_string(hm), c_string(hall), laue, pg, ', '.join(map(str, asu)), c_string(inf)))
        f.write('};\n')


def write_wyckoff(path, rows, chosen):
    with open(path, 'w') as f:
        f.write(HEADER + '#include "crystal/vant_symmetry_tables_data.h"\n\n')
        f.write('const wyckoff_info_row wyckoff_info_rows[wyckoff_info_row_count] = {\n')
        for i in chosen:
            texts = [t for t, _ in wyckoff_texts(rows[i][2])]
            if len(texts) > 26:
                raise SystemExit('too many positions')
            f.write('    {%s, %d, {%s}},\n' % (c_string(rows[i][1]), len(texts),
                                             ', '.join(c_string(t) for t in texts)))
        f.write('};\n')


def write_gen(path, gens):
    with open(path, 'w') as f:
        f.write(HEADER + '#include "crystal/vant_symmetry_tables_data.h"\n\n')
        f.write('const char* const spg_gen_rows[spg_gen_row_count] = {\n')
        for g in gens:
            f.write('    %s,\n' % c_string(g))
        f.write('};\n')


# Groups whose Wyckoff multiplicities the tests compare with the tables.
TEST_GROUPS = ['P -1', 'P 2', 'P 21/C', 'C 2/C', 'P N M A', 'I 41/A M D', 'I 41/A M D:1', 'R -3 M',
               'R -3 M:R', 'P 63/M M C', 'F D -3 M:1', 'F D -3 M', 'I A -3 D']


def write_test_reference(path, rows):
    """The Wyckoff reference of the tests, one group a line."""
    with open(path, 'w') as f:
        f.write('# Wyckoff positions of a dozen settings from the International Tables, as cctbx\n'
                '# gives them (tools/gen_symmetry_tables.py): letter a first, the general\n'
                '# position left out, multiplicities in the conventional cell.\n'
                '# Hermann-Mauguin symbol | multiplicities | representative positions\n')
        for hm in TEST_GROUPS:
            hall = next(r[2] for r in rows if r[1] == hm)
            texts = wyckoff_texts(hall)
            f.write('%s | %s | %s\n' % (hm, ' '.join(str(m) for _, m in texts),
                                        ' '.join(t.replace(' ', '') for t, _ in texts)))


def fnv1a64(text):
    h = 0xcbf29ce484222325
    for b in text.encode():
        h = ((h ^ b) * 0x100000001b3) & 0xffffffffffffffff
    return h


def operator_fingerprint(ops):
    """Order of the group and a hash of its operators: each as its nine
    rotation elements and its translation in 24ths (0 to 23), the texts
    sorted and joined by ";"."""
    texts = sorted(','.join([str(x) for row in r for x in row] + [str(int(x * 24) % 24) for x in t])
                   for r, t in ops)
    return len(ops), fnv1a64(';'.join(texts))


def write_hall_reference(path, rows):
    """The Hall reference of the tests: order, operator hash, Hall symbol."""
    with open(path, 'w') as f:
        f.write('# Every Hall symbol of the settings table (spgr_info), one row a setting in the\n'
                "# table's order, expanded by cctbx from the International Tables data\n"
                '# (tools/gen_symmetry_tables.py): the order of the group, a 64-bit FNV-1a hash\n'
                '# of its operators (operator_fingerprint in that script: each operator as its\n'
                '# nine rotation elements and its translation in 24ths, the texts sorted and\n'
                '# joined by ";"), then the Hall symbol.\n')
        for _, _, hall in rows:
            order, h = operator_fingerprint(ops_of(group_info(hall).group()))
            f.write('%d %016x %s\n' % (order, h, hall))


def main():
    rows = parse_settings()
    if len(rows) != 612:
        raise SystemExit('%d rows' % len(rows))
    write_spgr('crystal/vant_symmetry_tables_spgr_data.cpp', spgr_columns(rows))
    write_wyckoff('crystal/vant_symmetry_tables_wyckoff_data.cpp', rows, wyckoff_rows(rows))
    write_gen('crystal/vant_symmetry_tables_gen_data.cpp', gen_rows(rows))
    write_test_reference('tests/data/crystal/wyckoff_reference.txt', rows)
    write_hall_reference('tests/data/crystal/hall_reference.txt', rows)


if __name__ == '__main__':
    main()

#!/usr/bin/python3
"""Writes tests/data/crystal/group_generators.txt: groups built from operator
lists, with what cctbx says of the group the operators generate.

Run from the top of the source tree with Debian's python3-cctbx installed (a
tool of the developers, not of the build):

    /usr/bin/python3 tools/gen_generator_groups.py

Each case names the mode and text handed to set_spacegroup, the operators (or
a Hall symbol whose operators cctbx lists in full, as a CIF's operator loop
gives them), and what only this program decides: the symbol, Hall symbol and
setting text of the record, and the message it leaves. cctbx gives the rest:
order, lattice letter, centring code, crystal system, Laue class and the hash
of the operators (operator_fingerprint of gen_symmetry_tables.py).
"""
import os
import sys

from cctbx import sgtbx

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gen_symmetry_tables import operator_fingerprint, ops_of  # noqa: E402


def full(hall):
    """Every operator of a group, identity first, as a CIF lists them."""
    return ';'.join(op.as_xyz() for op in sgtbx.space_group_info(symbol='Hall: ' + hall).group().all_ops())


FD3M_1 = 'x,y+1/2,z+1/2;x+1/2,y,z+1/2;-y+1/4,x+1/4,z+1/4;x,-y,-z;z,x,y;-x+1/4,-y+1/4,-z+1/4'

# mode, text, operators, operators for cctbx (None: the same), symbol, Hall
# symbol, setting, message.
CASES = [
    ('GEN', '', '', None, 'P 1', 'P 1', 'tabulated', ''),
    ('GEN', 'C', '', 'x+1/2,y+1/2,z', 'C 1', 'C 1', 'tabulated', ''),
    ('GEN', '', 'x+1/2,y+1/2,z;-x,y,-z+1/2;-x,-y,-z', None, 'C 1 2/c 1', '-C 2yc', 'tabulated', ''),
    ('GEN', '', '-x,-y,z+268435456', '-x,-y,z', 'P 1 1 2', 'P 2', 'tabulated', ''),
    ('GEN', '', '-x+1/4,-y,z', None, 'Unknown', 'P2u', 'other', ''),
    ('GEN', '', '-y+1/2,x,z', None, 'Unknown', 'P4a', 'other', ''),
    ('GEN', '', '-x+1/2,-y,-z', None, 'Unknown', '-P1[-3,0,0]', 'other', ''),
    ('FIX', 'P', 'x,y,z;-x,-y,z;-x,-y,-z', None, 'unknown', 'unknown', 'fixed', ''),
    ('FIX', '', 'x,y,z;x+1/2,y+1/2,z;-x,-y,-z', None, 'unknown', 'unknown', 'fixed', ''),
    ('GEN', '', full('-P 2ybc'), None, 'P 1 21/c 1', '-P 2ybc', 'tabulated', ''),
    ('GEN', '', full('-P 4 2 3'), None, 'P m -3 m', '-P 4 2 3', 'tabulated', ''),
    ('GEN', '', full('-I 4bd 2c 3'), None, 'I a -3 d', '-I 4bd 2c 3', 'tabulated', ''),
    ('GEN', '', 'x,y,-z;-x,-y,z', None, 'P 1 1 2/m', '-P 2', 'tabulated', ''),
    ('GEN', '', '-x+1/2,-y+1/2,-z+1/2;-x,-y,z;-x,y,-z', None, 'P n n n:1', 'P 2 2 -1n', 'tabulated', ''),
    ('GEN', '', FD3M_1, None, 'F d -3 m:1', 'F 4d 2 3 -1d', 'tabulated', ''),
    # A centre at 1/24 of a: no origin shift in twelfths puts it at the origin.
    ('GEN', '', '-x+0.0833,-y,-z', '-x+1/12,-y,-z', 'Unknown', 'unknown', 'other', ' Error in generators'),
]

# Lists that make no group: the lattice and centring code the record must
# still show, and the message.
FAILURES = [
    ('GEN', '', 'x+1/2,y+1/2,z;-x,-y,-z;-y,x-y,z;x,-z,y', 'C', 2, 'unknown', 'unknown', 'user',
     ' The generators do not make a crystallographic group'),
]

HEADER = """\
# Groups built from operator lists (written by tools/gen_generator_groups.py,
# which asks cctbx for the group the operators generate). Fields: the mode,
# the text, the operators (parted by ";"); then, from cctbx, the order, the
# lattice letter, the centring code (0 centre off the origin, 1 acentric, 2
# centre at the origin), the crystal system, the Laue class and the hash of
# the operators (as in hall_reference.txt); then the symbol, Hall symbol and
# setting the record holds ("tabulated", "other", "fixed" and "user" stand
# for "Tabulated Setting", "Non-standard Setting", "Fixed symmetry operators
# (no info)" and "Non-Conventional (user-given operators)") and the message
# it leaves (blank for none). A list that makes no group has order 0 and no
# hash ("-").
"""


def cctbx_columns(mode, operators):
    group = sgtbx.space_group()
    for op in filter(None, operators.split(';')):
        group.expand_smx(op)
    centred = (2 if group.is_origin_centric() else 0) if group.is_centric() else 1
    order, h = operator_fingerprint(ops_of(group))
    return [str(order), group.conventional_centring_type_symbol(), str(centred), group.crystal_system(),
            group.laue_group_type(), '%016x' % h]


def main():
    with open('tests/data/crystal/group_generators.txt', 'w') as f:
        f.write(HEADER)
        for mode, text, ops, cctbx_ops, symbol, hall, setting, message in CASES:
            fields = [mode, text, ops] + cctbx_columns(mode, cctbx_ops or ops) + [symbol, hall, setting, message]
            f.write(' | '.join(fields).rstrip() + '\n')
        for mode, text, ops, lattice, centred, symbol, hall, setting, message in FAILURES:
            fields = [mode, text, ops, '0', lattice, str(centred), '', '', '-', symbol, hall, setting, message]
            f.write(' | '.join(fields).rstrip() + '\n')


if __name__ == '__main__':
    main()

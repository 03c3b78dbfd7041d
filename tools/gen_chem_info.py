#!/usr/bin/python3
"""Writes the 108 constant rows of chem_info as C++ source.

Run from the top of the source tree with Debian's python3-periodictable,
bodr and python3-pymatgen installed (tools of the developers, not of the
build; of pymatgen only its element table is read, as a JSON file, whose
path may be given instead):

    /usr/bin/python3 tools/gen_chem_info.py [periodic_table.json]

It writes crystal/vant_chem_info_rows.cpp, which is committed, so that
building the program needs no Python.

Rows: Z 1 to 105 in order, then BS (boron-11), ZE (zero scatterer), D
(deuterium). Symbols are upper case; rows 104 and 105 are KU and HA with
blank names.

Where each column comes from
----------------------------
symb, name, z  periodictable's element list (names capitalised), except the
               symbols KU and HA of rows 104 and 105, whose names are blank.
atwe           periodictable's standard atomic weights (Coplen, Atomic Weights
               of the Elements 1999, with the 2001 changes); for BS and D the
               isotope masses (Audi and Wapstra, 1995 Atomic Mass Evaluation).
rcov           periodictable's covalent radii (Cordero et al., Dalton Trans.
               2008, 2832); 0 where the package has none. D takes hydrogen's,
               BS boron's.
rwaals         van der Waals radii of the Blue Obelisk Data Repository
               (Debian package bodr, /usr/share/bodr/elements.xml: Bondi,
               J. Phys. Chem. 68 (1964) 441, completed from Batsanov, Inorg.
               Mater. 37 (2001) 871); 0 where it has none.
vatm           atomic volume in cm3/mol: atomic mass over periodictable's
               density of the element (of the liquid for gases); 0 where the
               density is unknown.
oxid           oxidation states from periodictable's element list (after the
               list of oxidation states of the elements of Wikipedia): the
               common ones in the package's order, then the uncommon ones by
               increasing magnitude, at most five; 0 fills the rest.
rion           Shannon's effective ionic radii (Acta Cryst. A32 (1976) 751)
               of each oxidation state of oxid, as pymatgen's element table
               carries them: for six-fold coordination, or else the nearest
               coordination number (the lower on a tie), high spin where the
               spin matters; 0 for a state Shannon does not list.
sctf           coherent scattering length b_c of periodictable's neutron table
               (Sears, Neutron News 3 (1992) 26, as updated by the NIST
               Center for Neutron Research), converted from fm to 1e-12 cm.
sedinc         incoherent cross section of the same table, barn.
sea            absorption cross section at 2200 m/s of the same table, barn.
ZE             the zero scatterer: every number 0 but z = 1.

The row of hydrogen is the program's own and is written as given below
(HYDROGEN), not from the sources.
"""

import json
import re
import sys
import xml.etree.ElementTree as ET

import periodictable as pt
from periodictable.core import element_base

OUT = "crystal/vant_chem_info_rows.cpp"
BODR = "/usr/share/bodr/elements.xml"
PYMATGEN_TABLE = "/usr/lib/python3/dist-packages/pymatgen/core/periodic_table.json"
ROMAN = {"I": 1, "II": 2, "III": 3, "IV": 4, "V": 5, "VI": 6, "VII": 7, "VIII": 8, "IX": 9, "X": 10,
         "XI": 11, "XII": 12, "XIV": 14}

HYDROGEN = dict(atwe=1.00797, rcov=0.32, rwaals=1.33, vatm=14.1,
                sctf=-0.3739, sedinc=80.26, sea=0.3326)


def bodr_vdw_radii():
    radii = {}
    for atom in ET.parse(BODR).getroot().iter():
        if not atom.tag.endswith("atom"):
            continue
        symbol = None
        radius = None
        for child in atom:
            ref = child.get("dictRef", "")
            if ref == "bo:symbol":
                symbol = child.get("value")
            elif ref == "bo:radiusVDW":
                radius = float(child.text)
        if symbol:
            radii[symbol] = radius or 0.0
    return radii


def shannon_radius(by_coordination):
    """The ionic radius for six-fold coordination, or the nearest one."""
    def number(code):
        return ROMAN[re.match(r"[IVX]+", code).group(0)]
    code = min(by_coordination, key=lambda c: (abs(number(c) - 6), number(c), c))
    spins = by_coordination[code]
    spin = "High Spin" if "High Spin" in spins else ("" if "" in spins else sorted(spins)[0])
    return spins[spin]["ionic_radius"]


def ionic_radii(shannon, symbol, oxid):
    table = shannon.get(symbol, {}).get("Shannon radii", {})
    return [shannon_radius(table[str(q)]) if q != 0 and str(q) in table else 0.0 for q in oxid]


def oxidation_states(z):
    _, _, common, uncommon = element_base[z]
    states = list(common) + sorted(uncommon, key=lambda q: (abs(q), q))
    states = states[:5]
    return states + [0] * (5 - len(states))


def num(v):
    return 0.0 if v is None else float(v)


def volume(mass, density):
    return mass / density if density else 0.0


def neutron(n):
    if n is None:
        return 0.0, 0.0, 0.0
    return num(n.b_c) / 10.0, num(n.incoherent), num(n.absorption)


def row_of(symb, name, z, atwe, rcov, rwaals, vatm, oxid, rion, sctf, sedinc, sea):
    assert len(name) <= 12, name
    return dict(symb=symb, name=name, z=z, atwe=atwe, rcov=rcov, rwaals=rwaals,
                vatm=vatm, oxid=oxid, rion=rion, sctf=sctf, sedinc=sedinc, sea=sea)


def element_row(z, vdw, shannon):
    e = pt.elements[z]
    symb = {104: "KU", 105: "HA"}.get(z, e.symbol.upper())
    name = "" if z in (104, 105) else e.name.capitalize()
    atwe = num(e.mass)
    oxid = oxidation_states(z)
    return row_of(symb, name, z, atwe, num(e.covalent_radius), vdw.get(e.symbol, 0.0),
                  volume(atwe, e.density), oxid, ionic_radii(shannon, e.symbol, oxid),
                  *neutron(e.neutron))


def isotope_row(symb, name, element, isotope, vdw, shannon):
    atwe = num(isotope.mass)
    oxid = oxidation_states(element.number)
    return row_of(symb, name, element.number, atwe, num(element.covalent_radius),
                  vdw.get(element.symbol, 0.0), volume(atwe, isotope.density), oxid,
                  ionic_radii(shannon, element.symbol, oxid), *neutron(isotope.neutron))


def rows(shannon):
    vdw = bodr_vdw_radii()
    table = [element_row(z, vdw, shannon) for z in range(1, 106)]
    table[0].update(HYDROGEN)
    table.append(isotope_row("BS", "Boron-11", pt.B, pt.B[11], vdw, shannon))
    table.append(row_of("ZE", "Zero-scatter", 1, 0.0, 0.0, 0.0, 0.0, [0] * 5, [0.0] * 5,
                        0.0, 0.0, 0.0))
    table.append(isotope_row("D", "Deuterium", pt.H, pt.D, vdw, shannon))
    assert len(table) == 108
    return table


def f(v):
    text = "%.6g" % v
    if "." not in text and "e" not in text:
        text += ".0"
    return text + "f"


def main():
    lines = [
        "// Written by tools/gen_chem_info.py; the sources of each column are",
        "// told there. Do not edit by hand: run the script again.",
        '#include "crystal/vant_chem_info_rows.h"',
        "",
        "// clang-format off",
        "const std::array<chem_info_row, 108> chem_info_rows{{",
    ]
    with open(sys.argv[1] if len(sys.argv) > 1 else PYMATGEN_TABLE) as table:
        shannon = json.load(table)
    for r in rows(shannon):
        oxid = ", ".join(str(q) for q in r["oxid"])
        rion = ", ".join(f(v) for v in r["rion"])
        lines.append('    {"%s", "%s", %d, %s, %s, %s, %s, {%s}, {%s}, %s, %s, %s},' % (
            r["symb"], r["name"], r["z"], f(r["atwe"]), f(r["rcov"]), f(r["rwaals"]),
            f(r["vatm"]), oxid, rion, f(r["sctf"]), f(r["sedinc"]), f(r["sea"])))
    lines += ["}};", "// clang-format on", ""]
    with open(OUT, "w") as out:
        out.write("\n".join(lines))


if __name__ == "__main__":
    main()

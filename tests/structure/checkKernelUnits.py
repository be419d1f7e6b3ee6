"""What the units of the kernels are made of: those that store integers read the limits of every integer pixel type at run time, and
the unsigned load is fused in the form that fuses and in no other.

Argument: a file that lists the colour module's objects."""

import collections
import os
import re
import subprocess
import sys

from checkVectorLeak import FUNCTION, listed

FAMILIES = ("linearConvert", "copyConvert", "fromRGBToHSVConvert", "fromHSVToRGBConvert")
FORMS = ("generic", "sse2", "avx2", "fma3_avx2")
# Mangled: signed and unsigned char, short, int.
LIMITS = [f"_ZN5kovis13NumericLimitsI{code}E5s_{end}E" for code in "ahstij" for end in ("min", "max")]
# The lightness has other forms; only in AVX512 does its luminosity fuse, on integers the last product alone.
LIGHTNESS_FORMS = ("generic", "sse2", "avx2", "avx512")
LIGHTNESS = "lightness<kovis::simd::%s::Register, %s>("
UNSIGNED_LOAD = "copyConvert<kovis::simd::%s::Register, unsigned int, float>("


def undefined_symbols(path):
    text = subprocess.run(["nm", "-u", path], capture_output=True, text=True, check=True).stdout
    return {line.split()[-1] for line in text.splitlines() if line.strip()}


def mnemonics(path, name):
    """The instructions of the function in whose demangled name `name` stands, and how often each stands there."""
    text = subprocess.run(["objdump", "-d", "-C", "--no-show-raw-insn", "-w", path], capture_output=True, text=True, check=True).stdout
    found = collections.Counter()
    inside = False
    for line in text.splitlines():
        match = FUNCTION.match(line)
        if match:
            inside = name in match.group(1)
        elif inside and "\t" in line:
            found[line.split("\t")[1].split()[0]] += 1
    return found


def lightness_problems(paths):
    units = {}
    for path in paths:
        match = re.match(r"lightness_(%s)\.cpp\." % "|".join(LIGHTNESS_FORMS), os.path.basename(path))
        if match:
            units[match.group(1)] = path
    problems = []
    for form in LIGHTNESS_FORMS:
        if form not in units:
            problems.append(f"there is no unit of the lightness for {form}")
            continue
        problems += [f"lightness_{form} does not read {symbol}" for symbol in sorted(set(LIMITS) - undefined_symbols(units[form]))]
        fused = {}
        for pixel in ("unsigned char", "int", "float"):
            found = mnemonics(units[form], LIGHTNESS % (form, pixel))
            fused[pixel] = sum(count for name, count in found.items() if name.startswith("vfm"))
            if not found or bool(fused[pixel]) != (form == "avx512"):
                problems.append(f"the lightness of {pixel} in {form} has to " + ("" if form == "avx512" else "not ") + "fuse: "
                                + " ".join(sorted(found)))
        # each block of the luminosity has two fused products of floats for one of integers
        if fused["unsigned char"] != fused["int"] or fused["float"] != 2 * fused["int"]:
            problems.append(f"the lightness in {form} has to fuse one product of integers and two of floats, and not {fused}")
    return problems


def main(object_list):
    objects = {}
    for path in listed(object_list):
        match = re.match(r"(\w+?)_(%s)\.cpp\." % "|".join(FORMS), os.path.basename(path))
        if match and match.group(1) in FAMILIES:
            objects[match.groups()] = path
    problems = []
    for family in FAMILIES:
        for form in FORMS:
            if (family, form) not in objects:
                problems.append(f"there is no unit of {family} for {form}")
                continue
            missing = set(LIMITS) - undefined_symbols(objects[family, form])
            problems += [f"{family}_{form} does not read {symbol}" for symbol in sorted(missing)]
    for form, wanted, unwanted in (("avx2", "vmulps", "vfmadd"), ("fma3_avx2", "vfmadd", "vmulps")):
        found = mnemonics(objects["copyConvert", form], UNSIGNED_LOAD % form) if ("copyConvert", form) in objects else set()
        if not any(name.startswith(wanted) for name in found) or any(name.startswith(unwanted) for name in found):
            problems.append(f"the unsigned load of {form} has to be by {wanted}: " + " ".join(sorted(found)))
    problems += lightness_problems(listed(object_list))
    print("\n".join(problems) if problems else f"{len(objects) + len(LIGHTNESS_FORMS)} units looked at")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

"""Instructions beyond SSE2 stand only in functions that bear a form's name: whatever another unit could share, and every unit's
initialiser, is plain x86-64 code.

Arguments: a file that lists the colour module's objects, and one that lists those of libraries without vector code."""

import concurrent.futures
import os
import re
import subprocess
import sys

FORMS = ("avx", "avx2", "fma3_avx2", "avx512")
# A name is of a form when the form's namespace stands in it, be it as its own or as a template argument's.
FORM_NAME = re.compile(r"\b(?:simd::|form_)(%s)(?:::|\b)" % "|".join(FORMS))
FORM_FILE = re.compile(r"_(fma3_avx2|avx512|avx2|avx)\.cpp")
INITIALISER = re.compile(r"^(_GLOBAL__|__cxx_global_|__static_initialization_and_destruction|global (con|de)structors keyed)")

FUNCTION = re.compile(r"^[0-9a-f]+ <(.+)>:$")
# Legacy encoded instructions of SSE3 to SSE4.2, which a compiler may use by itself where a stronger set is allowed.
# tzcnt is no sign: it is how the plain "rep bsf" reads.
LEGACY = re.compile(r"^(popcnt|lddqu|haddp[sd]|hsubp[sd]|addsubp[sd]|movs[hl]dup|movddup|pshufb|phadd\w*|phsub\w*|pmaddubsw|pmulhrsw|"
                    r"psign[bwd]|palignr|pabs[bwd]|pblend\w*|blendv?p[sd]|round[ps][sd]|pm(?:in|ax)(?:s[bd]|u[wd])|pmovsx\w+|pmovzx\w+|"
                    r"pmulld|pmuldq|ptest|pcmpeqq|pcmpgtq|packusdw|pextr[bdq]|pinsr[bdq]|insertps|extractps|dpp[sd]|mpsadbw|"
                    r"pcmp[ei]str[im]|crc32\w*|andn|bextr|bls\w+|bzhi|mulx|pdep|pext|rorx|sarx|shlx|shrx|lzcnt)$")


# System instructions that begin with v as those in VEX and EVEX encoding do.
SYSTEM = frozenset("verr verw vmcall vmlaunch vmresume vmxoff vmxon vmptrld vmptrst vmclear vmread vmwrite vmfunc vmrun vmload vmsave "
                   "vmmcall vmgexit".split())


def beyond_sse2(mnemonic, operands):
    if mnemonic.startswith("v") and mnemonic not in SYSTEM:
        return True
    return "%ymm" in operands or "%zmm" in operands or LEGACY.match(mnemonic) is not None


def vector_functions(path):
    """{demangled name of a function: its first instruction beyond SSE2} of an object file, and how many functions it has."""
    text = subprocess.run(["objdump", "-d", "-C", "--no-show-raw-insn", "-w", path], capture_output=True, text=True, check=True).stdout
    found = {}
    count = 0
    name = None
    for line in text.splitlines():
        match = FUNCTION.match(line)
        if match:
            name = match.group(1)
            count += 1
            continue
        fields = line.split("\t")
        if name is None or len(fields) < 2 or name in found:
            continue
        mnemonic, _, operands = fields[1].partition(" ")
        if mnemonic in ("rep", "repz", "repnz", "lock", "notrack", "data16", "bnd"):
            mnemonic, _, operands = operands.strip().partition(" ")
        if beyond_sse2(mnemonic, operands):
            found[name] = fields[1].strip()
    return found, count


def leaks(path, functions, allowed=True):
    """The functions that must be plain code and are not."""
    unit = FORM_FILE.search(os.path.basename(path))
    problems = []
    for name, instruction in functions.items():
        form = FORM_NAME.search(name)
        if allowed and form and not INITIALISER.match(name) and (not unit or unit.group(1) == form.group(1)):
            continue
        problems.append(f"{os.path.basename(path)}: {name} has '{instruction}'")
    return problems


def listed(path):
    with open(path, encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip()]


def main(color_list, baseline_list):
    color, baseline = listed(color_list), listed(baseline_list)
    problems = []
    forms = {}
    total = 0
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for path, (functions, count) in zip(color + baseline, pool.map(vector_functions, color + baseline)):
            problems += leaks(path, functions, path in color)
            total += count
            for name in functions:
                form = FORM_NAME.search(name)
                if form:
                    forms[form.group(1)] = forms.get(form.group(1), 0) + 1
    # Where no vector code is found at all, the test looks at the wrong files.
    for form in FORMS:
        if form not in forms:
            problems.append(f"no function of the form {form} is found")
    print("\n".join(problems) if problems else
          f"{total} functions looked at; vector code in " + ", ".join(f"{count} of {form}" for form, count in sorted(forms.items())))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))

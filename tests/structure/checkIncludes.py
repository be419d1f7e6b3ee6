"""Every library includes only what lies on a lower floor, and public headers include public headers only."""

import pathlib
import re
import sys

FLOORS = {
    "KOVISUtil": 1,
    "KOVISSerialization": 2,
    "KOVISHardware": 2,
    "KOVISBaseData": 3,
    "KOVISCore": 3,
    "KOVISImage": 4,
    "KOVISBaseImageTools": 5,
    "KOVISBaseProcessing": 5,
    "KOVISImageProcessing": 6,
    "KOVISIPLAttributes": 7,
    "KOVISIPLUtility": 8,
    "KOVISIPLGlobalMeasure": 8,
    "KOVISIPLColor": 9,
    "KOVISSimd": 2,  # the registers of the kernels: private headers without a library
}
INCLUDE = re.compile(r'^\s*#\s*include\s*["<]((KOVIS|KOVISIPL)/([A-Za-z0-9_]+)/[^">]+)[">]')
QUOTED = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def owner_of(path):
    """The library whose folder a file lies in."""
    parts = path.parts
    for tree in ("KOVIS", "KOVISIPL"):
        if tree in parts:
            return parts[parts.index(tree) + 1]
    return None


def main(root):
    root = pathlib.Path(root)
    problems = []
    looked_at = 0
    for top in ("include/public", "include/partner", "include/private", "src"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix not in (".h", ".cpp", ".inl", ".cu", ".cuh"):
                continue
            relative = path.relative_to(root)
            owner = owner_of(relative)
            if owner not in FLOORS:
                problems.append(f"{relative}: lies in no known library's folder")
                continue
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                quoted = QUOTED.match(line)
                match = INCLUDE.match(line)
                if not match:
                    if quoted:
                        problems.append(f"{relative}:{number}: '{quoted.group(1)}' is not written from the include root")
                    continue
                looked_at += 1
                target, _, used = match.groups()
                if used not in FLOORS:
                    problems.append(f"{relative}:{number}: '{target}' belongs to no known library")
                elif used != owner and FLOORS[used] >= FLOORS[owner]:
                    problems.append(f"{relative}:{number}: {owner} (floor {FLOORS[owner]}) includes '{target}' (floor {FLOORS[used]})")
                if not any((root / "include" / kind / target).is_file() for kind in ("public", "partner", "private")):
                    problems.append(f"{relative}:{number}: '{target}' does not exist")
                elif top == "include/public" and not (root / "include/public" / target).is_file():
                    problems.append(f"{relative}:{number}: a public header includes '{target}', which is not installed")
    if looked_at < 50:
        problems.append(f"only {looked_at} include lines found; is '{root}' the source tree?")
    print("\n".join(problems) if problems else f"{looked_at} include lines, none points up")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

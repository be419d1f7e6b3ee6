"""Every public header compiles alone: as the only include of a unit, twice, with warnings as errors."""

import concurrent.futures
import os
import pathlib
import subprocess
import sys


def compile_alone(compiler, root, header):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wconversion", "-Wshadow", "-Werror",
               f"-I{root}", "-x", "c++", "-"]
    text = f'#include "{header}"\n#include "{header}"\n'
    result = subprocess.run(command, input=text, capture_output=True, text=True, check=False)
    return header, result.returncode, result.stderr


def main(compiler, root):
    root = pathlib.Path(root)
    headers = sorted(str(path.relative_to(root)) for path in root.rglob("*.h"))
    failed = 0
    workers = len(os.sched_getaffinity(0))
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for header, code, errors in pool.map(lambda header: compile_alone(compiler, root, header), headers):
            if code != 0:
                failed += 1
                print(f"{header} does not compile alone:\n{errors}")
    print(f"{len(headers) - failed} of {len(headers)} headers compile alone")
    return 0 if headers and failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))

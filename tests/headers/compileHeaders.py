#!/usr/bin/env python3
"""Compiles the public headers as a client would, without making anything.

compileHeaders.py [--together] [--jobs N] SOURCE_DIR COMPILER STANDARD [FLAG...]

Each header under SOURCE_DIR/libs that doesn't end in _p.h is compiled twice over in a file of its
own, or with --together all of them in one file. Warnings are errors. The flags hold the include
folders of Qt.
"""

import argparse
import concurrent.futures
import pathlib
import subprocess
import sys

CLIENT_FLAGS = [
    "-fsyntax-only", "-fPIC", "-x", "c++", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
    # What a careful client of Qt forbids itself.
    "-DQT_NO_KEYWORDS", "-DQT_NO_CAST_FROM_ASCII", "-DQT_NO_CAST_TO_ASCII",
    "-DQT_DISABLE_DEPRECATED_BEFORE=0x050f00",
]


def compile_text(arguments, text):
    """The compiler's messages; empty when it is content."""
    command = [arguments.compiler, f"-std=c++{arguments.standard}", *CLIENT_FLAGS, *arguments.flags,
               "-I", str(arguments.source_dir / "libs"), "-"]
    return subprocess.run(command, input=text, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, check=False)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--together", action="store_true")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("source_dir", type=pathlib.Path)
    parser.add_argument("compiler")
    parser.add_argument("standard")
    parser.add_argument("flags", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()

    libs = arguments.source_dir / "libs"
    headers = sorted(str(header.relative_to(libs)) for header in libs.glob("Orvel*/**/*.h")
                     if not header.name.endswith("_p.h"))
    # Twice: a header has to bear being included again.
    texts = {header: f"#include <{header}>\n#include <{header}>\n" for header in headers}
    if arguments.together:
        texts = {"all headers": "".join(texts.values())}

    failed = 0
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        runs = pool.map(lambda text: compile_text(arguments, text), texts.values())
        for name, run in zip(texts, runs):
            if run.returncode != 0:
                failed += 1
                print(f"{name} as C++{arguments.standard}:\n{run.stdout}")
    print(f"{len(headers)} headers, {failed} of {len(texts)} files don't compile")
    return 1 if failed or not headers else 0


if __name__ == "__main__":
    sys.exit(main())

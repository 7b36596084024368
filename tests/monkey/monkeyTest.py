#!/usr/bin/env python3
"""Runs tallix-monkey with the arguments given: it must end well, and leave nothing on standard error."""

import os
import subprocess
import sys


def main() -> int:
    run = subprocess.run([os.environ["TALLIX_MONKEY"], *sys.argv[1:]], stderr=subprocess.PIPE, check=False)
    sys.stderr.buffer.write(run.stderr)
    if run.returncode != 0:
        print(f"tallix-monkey ended with {run.returncode}")
    if run.stderr:
        print("there should be nothing on standard error")
    return 1 if run.returncode != 0 or run.stderr else 0


if __name__ == "__main__":
    sys.exit(main())

"""How the built programs are protected against errors in memory. TALLIX_BUILD says in which folder Tallix was built."""

import os
import pathlib
import re
import subprocess
import unittest

BUILD = pathlib.Path(os.environ["TALLIX_BUILD"])
PROGRAMS = ("tallix", "tallix-cli")


def read(program, *options):
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}
    return subprocess.run(["readelf", "--wide", *options, BUILD / "bin" / program], env=environment, capture_output=True,
                          text=True, check=True).stdout


def imported(program):
    """The functions that the program takes from libraries."""
    return set(re.findall(r" UND (\w+)", read(program, "--dyn-syms")))


class Programs(unittest.TestCase):
    def test_are_loaded_anywhere(self):
        for program in PROGRAMS:
            self.assertRegex(read(program, "--file-header"), r"Type: +DYN ", program)
            self.assertRegex(read(program, "--dynamic"), r"\(FLAGS_1\) .*\bPIE\b", program)

    def test_write_no_tables_of_addresses_after_the_start(self):
        for program in PROGRAMS:
            self.assertRegex(read(program, "--program-headers"), r"(?m)^ +GNU_RELRO ", program)
            self.assertRegex(read(program, "--dynamic"), r"\(FLAGS_1\) .*\bNOW\b", program)

    def test_run_nothing_that_was_written(self):
        for program in PROGRAMS:
            headers = read(program, "--program-headers")
            self.assertRegex(headers, r"(?m)^ +GNU_STACK +(0x0+ +){5}RW +0x", program)
            self.assertNotRegex(headers, r"(?m)^ +LOAD .* RWE ", program)

    def test_notice_an_overwritten_stack(self):
        for program in PROGRAMS:
            self.assertIn("__stack_chk_fail", imported(program))

    def test_check_the_sizes_of_what_is_copied(self):
        for program in PROGRAMS:
            checked = {name for name in imported(program) if re.fullmatch(r"__\w+_chk", name)}
            self.assertTrue(checked, program)


class Build(unittest.TestCase):
    """What is compiled with checks, beyond what happens to need them."""

    def test_checks_sizes_that_are_computed(self):
        commands = subprocess.run(["ninja", "-C", BUILD, "-t", "commands", *PROGRAMS], capture_output=True, text=True,
                                  check=True).stdout.splitlines()
        own = [command for command in commands if re.search(r" -c .*/(engine|format|terminal|ui|app)/\w[\w/]*\.cpp$", command)]
        self.assertGreater(len(own), 50)
        for command in own:
            self.assertRegex(command, r" -D_FORTIFY_SOURCE=3 .*-fstack-protector-strong ")


if __name__ == "__main__":
    unittest.main(verbosity=2)

"""Builds the engine, the formatter and their tests as fast as they can be built, and tries changes on them.

The sources are copied first, so that the project's folder may be edited meanwhile. The engine and the formatter become
one shared library and each test source a program of its own: for a change of a .cpp file one object is compiled and the
library is linked again. A change of a header recompiles the objects that include it, each test just before it is run.
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import time

COMPILER = os.environ.get("CXX", "g++")
# Not optimised, since compiling takes longest; the library's own checks find what would only happen to work.
FLAGS = ["-std=c++20", "-O0", "-fPIC", "-w", "-ffp-contract=off", "-D_GLIBCXX_ASSERTIONS"]
# What the preset sanitize adds: writing past an end, or what has no defined result, fails too.
SANITIZERS = ["-fsanitize=address,undefined,float-cast-overflow", "-fno-sanitize-recover=all"]
RELEASE_FLAGS = ["-std=c++20", "-O2", "-w", "-ffp-contract=off", "-DNDEBUG"]
TEST_LIBRARIES = ["-lgtest_main", "-lgmock", "-lgtest", "-pthread"]
FOLDERS = ("engine", "format")
TEST_FOLDERS = ("tests/engine", "tests/format")
LIBRARY = "libtallix.so"
INCLUDE = re.compile(r"^#include <[^>]+>$", re.MULTILINE)

COMPILE_SECONDS = 300  # on a busy machine
LEAST_TEST_SECONDS = 4
BASE_TEST_SECONDS = 300  # The longest of the tests takes a minute with the sanitizers, not optimised.
SLOWNESS = 10  # A test that takes so many times its usual time never ends.
MEMORY = 3 << 30  # bytes
OUTPUT = 64 << 20  # bytes


class Workshop:
    """A copy of the sources, built in `folder`, with all tests passing."""

    def __init__(self, source, folder, library_flags=()):
        self.source = source
        self.folder = folder
        self.library_flags = list(library_flags)  # of the library alone
        self.objects = {}  # of each source, library and tests
        self.dependencies = {}  # of each source: itself and the project's headers it includes, directly or not
        self.seconds = {}  # of each test, how long it may take

    @classmethod
    def copied_from(cls, root, folder):
        copy_sources(root, folder / "source")
        return cls(folder / "source", folder)

    def sanitized(self):
        """The same with the sanitizers in the library: they tell of its faults. The tests' objects serve both."""
        other = Workshop(self.source, self.folder / "sanitized", SANITIZERS)
        for test in self.test_sources():
            other.objects[test], other.dependencies[test] = self.objects[test], self.dependencies[test]
        return other

    def build(self, pool):
        """Compiles what is not yet compiled, and runs the tests. Raises where one does not pass."""
        self.folder.mkdir(parents=True, exist_ok=True)
        for folders in (FOLDERS, TEST_FOLDERS):
            self.precompile(folders)
        sources = [*self.library_sources(), *self.test_sources()]
        list(pool.map(self.compile_base, [source for source in sources if source not in self.objects]))
        run(self.link_library(self.folder / LIBRARY, [self.objects[source] for source in self.library_sources()]))
        list(pool.map(self.link_base, self.test_sources()))
        for test in self.test_sources():
            began = time.monotonic()
            if not self.passes(self.program(test), self.folder, BASE_TEST_SECONDS):
                raise RuntimeError(f"{test} does not pass without a change")
            self.seconds[test] = max(LEAST_TEST_SECONDS, round(SLOWNESS * (time.monotonic() - began)))

    def library_sources(self):
        return listed(self.source, FOLDERS, "*.cpp")

    def test_sources(self):
        return listed(self.source, TEST_FOLDERS, "*Test.cpp")

    def program(self, test):
        return self.folder / "programs" / pathlib.Path(test).stem

    def compile_base(self, source):
        made = self.folder / "objects" / (source + ".o")
        made.parent.mkdir(parents=True, exist_ok=True)
        if is_stale(made, source, self.source, self.common_header(source)):
            run(self.compile([self.source], source, made))
        self.objects[source] = made
        self.dependencies[source] = dependencies(made, self.source)

    def link_base(self, test):
        self.program(test).parent.mkdir(exist_ok=True)
        run(self.link_program(self.program(test), self.objects[test], self.folder))

    def tests_of(self, file):
        """The tests that can reach a file, the nearest first: its class, its folder, what uses its folder."""
        folder, stem = os.path.split(file)
        stem = pathlib.Path(stem).stem
        reaching = [test for test in self.test_sources() if folder in self.folders_reached(test)]

        def distance(test):
            name = pathlib.Path(test).stem.removesuffix("Test")
            own = os.path.dirname(test) == "tests/" + folder
            kin = own and name.split("_")[0] == stem.split("_")[0]
            return not (own and name == stem), not kin, not own, "controller" not in test, test

        return sorted(reaching, key=distance)

    def folders_reached(self, source):
        """The folders of the library whose code the objects behind a source may call."""
        reached, waiting = set(), [source]
        while waiting:
            for folder in {os.path.dirname(file) for file in self.dependencies[waiting.pop()]} - reached:
                reached.add(folder)
                waiting += [other for other in self.library_sources() if os.path.dirname(other) == folder]
        return reached

    def dependents(self, file, sources):
        return [source for source in sources if file in self.dependencies[source]]

    def flags(self, source):
        return FLAGS if source.startswith("tests/") else [*FLAGS, *self.library_flags]

    def common_header(self, source):
        return self.folder / ("tests.h" if source.startswith("tests/") else "library.h")

    def precompile(self, folders):
        """One header for the library and one for its tests: the standard headers that their sources include."""
        any_source = f"{folders[0]}/"
        header, flags = self.common_header(any_source), self.flags(any_source)
        files = [file for pattern in ("*.cpp", "*.h") for file in listed(self.source, {*FOLDERS, *folders}, pattern)]
        includes = {line for file in files for line in INCLUDE.findall((self.source / file).read_text())}
        text = "\n".join([f"// {shlex.join([COMPILER, *flags])}", *sorted(includes), ""])
        if not header.exists() or header.read_text() != text or not header.with_suffix(".h.gch").exists():
            header.write_text(text)
            run([COMPILER, *flags, "-x", "c++-header", str(header), "-o", str(header) + ".gch"])

    def compile(self, include_folders, source, made):
        """The command that compiles `source` as it stands in the first of the folders that has it."""
        found = next(path for path in (include / source for include in include_folders) if path.exists())
        options = ["-include", str(self.common_header(source)), *(f"-I{include}" for include in include_folders)]
        return [COMPILER, *self.flags(source), "-MMD", *options, "-c", str(found), "-o", str(made)]

    def link_library(self, made, objects):
        # Its inline functions are its own, not those of the test's object, which may be compiled without sanitizers.
        return [COMPILER, *FLAGS, *self.library_flags, "-shared", "-Wl,-Bsymbolic", "-o", str(made), *map(str, objects)]

    def link_program(self, made, test_object, library_folder):
        libraries = [f"-L{library_folder}", "-ltallix", *TEST_LIBRARIES]
        return [COMPILER, *FLAGS, *self.library_flags, "-o", str(made), str(test_object), *libraries]

    def passes(self, program, folder, seconds):
        """Whether a test program passes with the library in `folder`, in so many seconds of the processor's time."""
        # The shell's limits, and not one on the clock alone: the machine may be busy with something else.
        limits = ["ulimit -c 0", f"ulimit -t {seconds}", f"ulimit -f {OUTPUT >> 9}"]
        if not self.library_flags:  # AddressSanitizer reserves all there is, and has a limit of its own
            limits.append(f"ulimit -v {MEMORY >> 10}")
        call = "; ".join([*limits, f"exec {shlex.quote(str(program))} --gtest_fail_fast"])
        options = {"LD_LIBRARY_PATH": str(folder), "ASAN_OPTIONS": f"hard_rss_limit_mb={MEMORY >> 20}:detect_odr_violation=0"}
        with open(folder / "output.txt", "wb") as output:
            try:
                ended = subprocess.run(["sh", "-c", call], env={**os.environ, **options}, timeout=20 * seconds,
                                       input=b"", stdout=output, stderr=output)  # fmt: skip
            except subprocess.TimeoutExpired:
                return False
        return ended.returncode == 0


class Bench:
    """The place of one worker, where one changed file at a time lies in front of the copy of the sources."""

    def __init__(self, workshop, number):
        self.workshop = workshop
        self.folder = workshop.folder / f"worker{number}"
        self.changed = self.folder / "source"

    def fate_of(self, change):
        """What becomes of a change: the test that finds it, "survived", "same code", or None: it does not compile."""
        shutil.rmtree(self.folder, ignore_errors=True)
        changed = self.changed / change.file
        changed.parent.mkdir(parents=True)
        changed.write_text(change.applied((self.workshop.source / change.file).read_text()))
        try:
            self.build_library(change.file)
            for test in self.workshop.tests_of(change.file):
                if not self.workshop.passes(self.program(test, change.file), self.folder, self.workshop.seconds[test]):
                    return test
        except subprocess.SubprocessError:
            return None
        return "same code" if self.is_same_code(change.file) else "survived"

    def build_library(self, file):
        objects = dict(self.workshop.objects)
        for source in self.workshop.dependents(file, self.workshop.library_sources()):
            objects[source] = self.compiled(source)
        in_order = [objects[source] for source in self.workshop.library_sources()]
        run(self.workshop.link_library(self.folder / LIBRARY, in_order))

    def program(self, test, file):
        if file not in self.workshop.dependencies[test]:
            return self.workshop.program(test)
        program = self.folder / "program"
        run(self.workshop.link_program(program, self.compiled(test), self.folder))
        return program

    def compiled(self, source):
        made = self.folder / "objects" / (source + ".o")
        made.parent.mkdir(parents=True, exist_ok=True)
        run(self.workshop.compile([self.changed, self.workshop.source], source, made))
        return made

    def is_same_code(self, file):
        """Whether the compiler, optimising, makes the same of a source with and without the change."""
        if not file.endswith(".cpp"):
            return False
        made = []
        for folders in ([self.workshop.source], [self.changed, self.workshop.source]):
            program = self.folder / f"release{len(folders)}.o"
            options = [f"-I{folder}" for folder in folders]
            run([COMPILER, *RELEASE_FLAGS, *options, "-c", str(folders[0] / file), "-o", str(program)])
            made.append(program.read_bytes())
        return made[0] == made[1]


def listed(root, folders, pattern):
    return sorted(str(path.relative_to(root)) for folder in folders for path in (root / folder).rglob(pattern))


def copy_sources(root, target):
    """Copies what is not the same there already, so that what was compiled from the rest stays good."""
    names = [name for pattern in ("*.cpp", "*.h") for name in listed(root, (*FOLDERS, "tests"), pattern)]
    for old in set(listed(target, (*FOLDERS, "tests"), "*.*")) - set(names):
        (target / old).unlink()
    for name in names:
        text, copy = (root / name).read_bytes(), target / name
        if not copy.exists() or copy.read_bytes() != text:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(text)


def run(command):
    """Raises a SubprocessError where it fails, or never ends."""
    subprocess.run(command, check=True, timeout=COMPILE_SECONDS, input=b"", capture_output=True)


def dependencies(made, source_folder):
    """The project's files that an object was compiled from, as the compiler noted them."""
    words = made.with_suffix(".d").read_text().replace("\\\n", " ").split()[1:]
    prefix = str(source_folder) + "/"
    return {word.removeprefix(prefix) for word in words if word.startswith(prefix)}


def is_stale(made, source, source_folder, common):
    if not made.exists() or not made.with_suffix(".d").exists():
        return True
    included = dependencies(made, source_folder)
    if source not in included:  # compiled elsewhere: the folder was moved
        return True
    files = [common, *(source_folder / file for file in included)]
    return any(not file.exists() or file.stat().st_mtime > made.stat().st_mtime for file in files)

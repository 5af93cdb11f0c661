"""A copy of the project for faults, built as the release preset does. The tree of work is never touched."""
import dataclasses
import fcntl
import hashlib
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import time

MEMORY = 6 << 30     # address space of a test, bytes: a fault may allocate without end
FILE_SIZE = 1 << 30  # the longest file a test may write, bytes
BUILD_LIMIT = 900    # seconds
LAUNCHER = pathlib.Path(__file__).resolve().parent / "compile"


@dataclasses.dataclass
class Entry:
    """One test as ctest knows it."""
    name: str
    room: str            # the folder below tests/
    command: list
    folder: str
    environment: dict
    program: str         # below the build folder, as the build names it
    objects: set = dataclasses.field(default_factory=set)
    seconds: float = 0.0  # on the unharmed copy


def hold_back():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(command, cwd, limit, environment=None, limited=False):
    """(exit code, what it said); the code is None when time ran out. Its children end with it."""
    process = subprocess.Popen(command, cwd=cwd, env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                               start_new_session=True, preexec_fn=hold_back if limited else None)
    try:
        said, _ = process.communicate(timeout=limit)
        return process.returncode, said
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        said, _ = process.communicate()
        return None, said


class Tree:
    """The copy below a work folder, at one revision, with its build folder and its tests."""

    def __init__(self, work, jobs, steps):
        self.work, self.jobs, self.steps = pathlib.Path(work).resolve(), jobs, steps
        self.root = self.work / "tree"
        self.build = self.root / "build" / "mutants"
        self.entries = []
        self.locked = None

    def lock(self):
        """Two runs in one copy would judge each other's faults."""
        self.work.mkdir(parents=True, exist_ok=True)
        self.locked = (self.work / "lock").open("w")
        try:
            fcntl.flock(self.locked, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise SystemExit(f"another run works in {self.work}; name another folder with --work") from None

    def check_out(self, repository, revision):
        """The revision's full name; the copy borrows its objects from the repository."""
        git = ["git", "-C", repository]
        sha = self.must([*git, "rev-parse", "--verify", f"{revision}^{{commit}}"], repository).strip()
        if not self.root.exists():
            common = self.must([*git, "rev-parse", "--path-format=absolute", "--git-common-dir"],
                               repository).strip()
            self.must(["git", "clone", "-q", "--shared", "--no-checkout", common, str(self.root)], repository)
        self.must(["git", "checkout", "-q", "--force", "--detach", sha])
        return sha

    def configure(self):
        flags = ["-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", f"-DVESK_CCACHE={LAUNCHER}"]
        if shutil.which("ld.gold"):
            flags.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold")
        self.must(["cmake", "--preset", "release", "-B", str(self.build), *flags])

    def must(self, command, cwd=None):
        code, said = run(command, cwd or self.root, None)
        if code != 0:
            raise SystemExit(f"{' '.join(map(str, command))} failed:\n{said[-4000:]}")
        return said

    def ninja(self, *targets, faulty=False):
        """Whether the targets could be built; warnings do not count in what carries a fault."""
        environment = {**os.environ, "VESK_FAULT_FLAGS": "-w"} if faulty else None
        return run(["ninja", f"-j{self.jobs}", *targets], self.build, BUILD_LIMIT, environment)[0] == 0

    def read_entries(self, rooms):
        """What ctest would run from some folders of tests, each entry with the objects it is made of.

        Call it when they are built: ctest tells the command of a program only then.
        """
        listed = json.loads(self.must(["ctest", "--test-dir", str(self.build), "--show-only=json-v1"]))
        self.entries = []
        for test in listed["tests"]:
            command = test.get("command", [])
            properties = {p["name"]: p["value"] for p in test["properties"]}
            folder = properties["WORKING_DIRECTORY"]
            room = os.path.basename(folder)
            if room not in rooms or not command or not command[0].startswith(str(self.build)):
                continue
            variables = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
            program = os.path.relpath(command[0], self.build)
            inputs = self.must(["ninja", "-C", str(self.build), "-t", "inputs", program]).split()
            self.entries.append(Entry(test["name"], room, command, folder, variables, program,
                                      {name for name in inputs if name.endswith(".o")}))

    def read_objects(self):
        """For every source and header below the copy: the objects that are made of it."""
        objects, current = {}, None
        for line in self.must(["ninja", "-C", str(self.build), "-t", "deps"]).splitlines():
            if line and line[0] != " ":
                current = line.split(":")[0]
            elif current and line.strip():
                path = os.path.normpath(os.path.join(self.build, line.strip()))
                if path.startswith(str(self.root)):
                    objects.setdefault(os.path.relpath(path, self.root), set()).add(current)
        return objects

    def fingerprint(self, names):
        """One value for the content of some objects: a fault that the compiler does not see is none."""
        digest = hashlib.sha256()
        for name in sorted(names):
            digest.update((self.build / name).read_bytes())
        return digest.hexdigest()

    def environment_of(self, entry):
        scratch = self.work / "scratch"
        shutil.rmtree(scratch, ignore_errors=True)
        scratch.mkdir(parents=True)
        return {**os.environ, **entry.environment, **self.steps, "GTEST_FAIL_FAST": "1",
                "TMPDIR": str(scratch), "HOME": str(scratch)}

    def run_entry(self, entry, limit):
        """(what noticed a fault or "", seconds, all that was said). The first failing case ends the entry."""
        began = time.monotonic()
        code, said = run(entry.command, entry.folder, limit, self.environment_of(entry), limited=True)
        seconds = time.monotonic() - began
        if code == 0:
            return "", seconds, said
        case = re.search(r"\[  FAILED  \] (\S+?),? ", said + " ")
        how = "time" if code is None else f"signal {-code}" if code < 0 else f"code {code}"
        return f"{entry.name}: {case[1] if case else how}", seconds, said

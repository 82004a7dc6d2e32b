"""The command line of scripts/mutate, and the run as a whole."""

import argparse
import collections
import fcntl
import itertools
import json
import os
import pathlib
import queue
import random
import shutil
import signal
import sys
import threading
import time
import zlib

import accepted
import build
import guard
import mutations
import running
import worker
from source import Source

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
DIRECTORY = ROOT / "build" / "mutate"
MUTATED = ["inventory", "os", "flat", "provider", "support"]
ACCEPTED = HERE / "accepted.txt"
CHUNK = 20  # mutants of one file that a worker takes at once


def arguments():
    parser = argparse.ArgumentParser(
        prog="scripts/mutate",
        description="Makes small mistakes in the sources, one at a time, in copies below build/mutate; builds each and "
        "runs the tests that cover it; names the survivors, the mistakes that no test notices. Exits with 1 when a "
        f"survivor is not in {ACCEPTED.relative_to(ROOT)}, the list of those accepted with a reason, "
        "with 2 when it can't run.",
    )
    parser.add_argument("paths", nargs="*", default=MUTATED, help="files and directories, from the root of the sources")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="workers, each with a copy (the processors)")
    parser.add_argument("--list", action="store_true", help="show the mutants, run nothing")
    parser.add_argument("--kinds", default=",".join(mutations.KINDS), help="only these kinds: %(default)s")
    parser.add_argument("--per-line", type=int, default=2, metavar="N",
                        help="try at most N mutants of a line, of different kinds where it has them, and one of a header's "
                        "(2; 0: all, of a header's, too)")  # fmt: skip
    parser.add_argument("--sample", type=int, metavar="N", help="try only N mutants, drawn at random")
    parser.add_argument("--seed", type=int, default=1, help="of the sample (1)")
    parser.add_argument("--programs", default="", metavar="EXPRESSION", help="run only the test programs of these names")
    parser.add_argument("--longest", type=float, default=5, metavar="S", help="leave out tests that take longer (5)")
    parser.add_argument("--accepted", action="store_true", help="try those of the list of accepted ones, too")
    again = parser.add_mutually_exclusive_group()
    again.add_argument("--resume", action="store_true", help="go on with an interrupted run of the same sources")
    again.add_argument("--survivors", action="store_true", help="try only those that survived the last run")
    return parser.parse_args()


def sources(paths):
    """The C++ files below the paths."""
    wanted = [os.path.normpath(path) for path in paths]
    files = [
        name
        for name in build.tracked_files(ROOT)
        if name.startswith(tuple(f"{directory}/" for directory in MUTATED))
        and name.endswith((".cpp", ".h"))
        and any(name == path or name.startswith(f"{path}/") for path in wanted)
    ]
    if not files:
        raise SystemExit(f"scripts/mutate: no C++ file of {', '.join(MUTATED)} below {' '.join(paths)}")
    return files


class Record:
    """The results so far, in a file that an interrupted run leaves behind."""

    def __init__(self, options):
        self.file = DIRECTORY / "results.jsonl"
        self.state = build.digest(ROOT, ACCEPTED)  # what is accepted changes no result
        self.results = {}
        lines = self.file.read_text().splitlines() if self.file.exists() else []
        state, entries = json.loads(lines[0])["sources"] if lines else "", {}
        for line in lines[1:]:
            entry = json.loads(line)
            entries[self._key(entry)] = entry
        self.survivors = {key: entry for key, entry in entries.items() if entry["result"] == worker.SURVIVED}
        self.kept = self.survivors.values() if options.survivors else []  # until they have been tried again
        if options.resume and entries:
            if state != self.state:
                raise SystemExit("scripts/mutate: the sources have changed since that run; start anew without --resume")
            self.results = {key: (entry["result"], entry["by"]) for key, entry in entries.items()}
        elif options.survivors and not self.survivors:
            raise SystemExit("scripts/mutate: no survivor of a last run is known")

    @staticmethod
    def _key(entry):
        return entry["path"], entry["function"], tuple(entry["before"]), tuple(entry["after"])

    def begin(self):
        if not self.results:
            lines = [{"sources": self.state}, *self.kept]
            self.file.write_text("".join(json.dumps(line) + "\n" for line in lines))

    def add(self, mutation, result, by):
        self.results[mutation.key] = (result, by)
        path, function, before, after = mutation.key
        entry = {"path": path, "function": function, "kind": mutation.kind, "before": before, "after": after,
                 "line": mutation.line, "result": result, "by": by}  # fmt: skip
        with self.file.open("a") as file:
            file.write(json.dumps(entry) + "\n")


def thinned(wanted, most):
    """At most so many mutants of each line, and one of a header's, for which much is built: of different kinds first, and
    another kind first from line to line."""
    by_line = collections.defaultdict(list)
    for mutation in wanted:
        by_line[mutation.path, mutation.line].append(mutation)
    kept = set()
    for (path, _), of_line in by_line.items():
        by_kind = collections.defaultdict(list)
        for mutation in sorted(of_line, key=lambda one: zlib.crc32(repr(one.key).encode())):
            by_kind[mutation.kind].append(mutation)
        in_turn = itertools.chain(*itertools.zip_longest(*by_kind.values()))
        kept.update(mutation.key for mutation in list(filter(None, in_turn))[: 1 if path.endswith(".h") else most])
    return [mutation for mutation in wanted if mutation.key in kept]


def chosen(options, record):
    """The mutants to try, in the order of files and lines, and all that the files have."""
    kinds = options.kinds.split(",")
    every = [
        mutation
        for name in sources(options.paths)
        for mutation in mutations.mutations(Source(name, (ROOT / name).read_text()))
    ]
    wanted = [mutation for mutation in every if mutation.kind in kinds]
    if options.survivors:
        wanted = [mutation for mutation in wanted if mutation.key in record.survivors]
    elif options.per_line:
        wanted = thinned(wanted, options.per_line)
    if options.sample and options.sample < len(wanted):
        positions = sorted(random.Random(options.seed).sample(range(len(wanted)), options.sample))
        wanted = [wanted[position] for position in positions]
    return wanted, every


def copy_made(options, number, jobs, paths):
    print(f"building copy {number} of {options.jobs}", flush=True)
    directory = DIRECTORY / f"worker-{number}"
    directory.mkdir(parents=True, exist_ok=True)
    return worker.Worker(ROOT, directory, options, jobs, paths)


def first_worker(options, paths):
    """The one that measures the tests for all."""
    first = copy_made(options, 1, options.jobs, paths)
    print("running every test without a mistake", flush=True)
    first.measure()
    for name in first.left_out:
        print(f"left out, too slow: {name}")
    return first


def another_worker(options, number, first, paths):
    """Made while the first is at work already."""
    other = copy_made(options, number, 1, paths)
    other.share_measures(first)
    return other


def run(options, todo, record):
    """Tries the mutants, by as many workers as there are copies."""
    chunks = queue.Queue()
    by_file = collections.defaultdict(list)
    for mutation in todo:
        by_file[mutation.path].append(mutation)
    for _, ofs in sorted(by_file.items(), key=lambda entry: entry[0].endswith(".h")):  # headers take longest: last
        for begin in range(0, len(ofs), CHUNK):
            chunks.put(ofs[begin : begin + CHUNK])
    lock = threading.Lock()
    failures = []
    tried = itertools.count(1)

    def work(number):
        try:
            one = first if number == 1 else another_worker(options, number, first, by_file)
            while not failures:
                chunk = chunks.get_nowait()
                one.begin_file(chunk[0].path, (ROOT / chunk[0].path).read_text())
                for mutation in chunk:
                    result, by = one.attempt(mutation)
                    with lock:
                        record.add(mutation, result, by)
                        report(mutation, result, by)
        except (queue.Empty, running.Stopped):
            pass
        except Exception as error:  # a worker that stops must stop the run, not shorten it
            failures.append(error)

    def report(mutation, result, by):
        count = next(tried)
        if count % CHUNK == 0 or count == len(todo):
            print(f"{count} of {len(todo)} tried", flush=True)
        if result == worker.SURVIVED:
            print(f"{mutation.path}:{mutation.line}: {mutation.kind} survived\n{accepted.text(mutation)}\n", flush=True)

    first = first_worker(options, by_file)
    record.begin()  # not before: the last run's results last until there are new ones
    threads = [threading.Thread(target=work, args=(number + 1,), daemon=True) for number in range(options.jobs)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        raise failures[0]


def summary(results):
    """A table of the results by directory."""
    columns = [worker.BROKEN, worker.SAME, worker.KILLED, worker.SURVIVED]
    table = collections.defaultdict(collections.Counter)
    for key, (result, _) in results.items():
        parts = key[0].split("/")
        table["/".join(parts[:2] if parts[0] == "support" else parts[:1])][result] += 1
    print(f"{'':18}{'mutants':>8}" + "".join(f"{column:>18}" for column in columns))
    for name, counts in sorted(table.items()):
        print(f"{name:18}{counts.total():8}" + "".join(f"{counts[column]:18}" for column in columns))


def verdict(results, every, entries):
    """Compares the survivors with the list; 1 when one is not in it."""
    listed = {entry.key: entry for entry in entries}
    existing = {mutation.key for mutation in every}
    files = {mutation.path for mutation in every}
    unlisted = [key for key, (result, _) in results.items() if result == worker.SURVIVED and key not in listed]
    for key, entry in listed.items():
        if key[0] in files and key not in existing:
            print(f"accepted.txt:{entry.line}: there is no such mutant any more: take the entry out")
        elif key in results and results[key][0] != worker.SURVIVED:
            print(f"accepted.txt:{entry.line}: does not survive ({' '.join(results[key])}): take the entry out")
    survived = sum(result == worker.SURVIVED for result, _ in results.values())
    print(f"{survived} survivors, {survived - len(unlisted)} of them accepted with a reason")
    for path, function, before, after in unlisted:
        print("\nnot accepted:\n" + "\n".join([f"@ {path} {function}", *[f"- {line}" for line in before],
                                               *[f"+ {line}" for line in after]]))  # fmt: skip
    return 1 if unlisted else 0


def main():
    options = arguments()
    open_side = guard.weakness()
    if open_side:
        raise SystemExit(f"scripts/mutate: not behind the guard: {open_side}; nothing is run")
    entries = accepted.read(ACCEPTED)
    record = Record(options)
    wanted, every = chosen(options, record)
    if options.list:
        for mutation in wanted:
            print(f"{mutation.path}:{mutation.line}: {mutation.kind}\n{accepted.text(mutation)}\n")
        print(f"{len(wanted)} mutants")
        return 0
    DIRECTORY.mkdir(parents=True, exist_ok=True)
    lock = (DIRECTORY / "lock").open("w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        raise SystemExit(f"scripts/mutate: another run is at work in {DIRECTORY}: wait for its end") from None
    reached = DIRECTORY / "reached"
    reached.unlink(missing_ok=True)
    os.environ["VQ_MUTATE_REACHED"] = str(reached)
    known = set(record.results) if options.accepted else {entry.key for entry in entries}.union(record.results)
    todo = [mutation for mutation in wanted if mutation.key not in known]
    print(f"{len(todo)} mutants to try", flush=True)
    began = time.monotonic()
    if todo:
        run(options, todo, record)
    print(f"{(time.monotonic() - began) / 60:.0f} minutes")
    summary(record.results)
    left = sum(mutation.key in known and mutation.key not in record.results for mutation in wanted)
    if left:
        print(f"{left} accepted with a reason were not tried again: --accepted does")
    if reached.exists():
        print("a mutant came as far as the programs that stop a machine; the guard refused:\n" + reached.read_text())
    return verdict(record.results, every, entries)


if __name__ == "__main__":
    if not shutil.which("ninja"):
        raise SystemExit("scripts/mutate: ninja is missing: scripts/setup test installs it")
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        sys.exit(main())
    except (build.BuildFailed, RuntimeError, ValueError) as error:
        print(f"scripts/mutate: {error}", file=sys.stderr)
        sys.exit(2)
    except KeyboardInterrupt:
        running.stop()
        print("scripts/mutate: interrupted; --resume goes on", file=sys.stderr)
        sys.exit(2)

"""The text format of Prometheus, read strictly, and machines whose texts are as bad as they can be."""
import json
import os
import re
import shutil
import subprocess
import sys

LINE = re.compile(r'([a-zA-Z_:][a-zA-Z0-9_:]*)(?:\{(.*)\})? (\S+)')
LABEL = re.compile(r'([a-zA-Z_][a-zA-Z0-9_]*)="((?:[^"\\\n]|\\[\\"n])*)"(?:,|$)')
UNESCAPED = {r"\n": "\n", r"\"": '"', r"\\": "\\"}

SAMPLES = [os.path.join(os.environ["VQ_SOURCE_DIR"], "samples", name) for name in ("server.bin", "desktop.bin")]


def skip(why):
    print("SKIPPED:", why)
    sys.exit(77)


def program(name):
    """Its path: installed, or brought by scripts/fetch-monitoring-programs."""
    fetched = os.path.join(os.environ["VQ_SOURCE_DIR"], "build", "monitoring-programs")
    found = shutil.which(name, path=os.environ["PATH"] + os.pathsep + fetched)
    return found or skip(f"{name} is not installed, and not fetched (scripts/fetch-monitoring-programs)")


def series(text):
    """{(name, labels that are not empty): value} of a text, each of which may be there once."""
    found = {}
    for line in text.splitlines():
        if not line or line.startswith("#"):
            continue
        name, labels, value = LINE.fullmatch(line).groups()
        pairs, end = [], 0
        while end < len(labels or ""):
            label = LABEL.match(labels, end)
            assert label, line
            pairs.append((label[1], re.sub(r"\\.", lambda escape: UNESCAPED[escape[0]], label[2])))
            end = label.end()
        assert len({key for key, _ in pairs}) == len(pairs), line
        key = (name, frozenset(pair for pair in pairs if pair[1]))
        assert key not in found, f"twice: {line}"
        found[key] = float(value)
    return found


def metrics(*arguments):
    """What the tool writes; a request may fail."""
    run = subprocess.run([os.environ["VQ_TOOL"], "--format", "prometheus", *arguments], stdout=subprocess.PIPE, check=False)
    return run.stdout.decode("utf-8")


def hostile_file(directory):
    """Saved answers with machines of one name, slots of one name, and texts that would end a label."""
    run = subprocess.run([os.environ["VQ_TOOL"], "--format", "json", "--from-dump", SAMPLES[0]], stdout=subprocess.PIPE, check=True)
    machine = json.loads(run.stdout)["machines"][0]
    texts = ['"} 7\nsystemprovider_swap_bytes 7', "\\", "\\n", '\\"', "a\nb", "\t\x01\x7f\x9b", "é", "\u202e", " ", "", "{}", "#"]
    slots = machine["classes"]["QORTAL_Slot"]
    machine["classes"]["QORTAL_Slot"] = [
        {**slots[0], "properties": {**slots[0]["properties"], "Name": text}} for text in texts + texts]
    machines = [{**machine, "name": name} for name in ["a", "a", "a #2", *texts, *texts]]
    file = os.path.join(directory, "hostile.json")
    with open(file, "w", encoding="utf-8") as out:
        json.dump({"format": "systemprovider-inventory", "version": 1, "machines": machines}, out)
    return file

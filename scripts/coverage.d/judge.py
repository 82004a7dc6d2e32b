"""Compares what gcovr found with the list of what no test can run: judge.py <gcovr's JSON> <list>

An entry of the list is a file and a source line, then the reason, indented. Entries that follow each other without one
share the reason of the last:

    support/smbios/File.cpp: if (got == 0)
      <the reason>
"""

import json
import sys
from collections import defaultdict


def accepted(file_name):
    """The places of the list; ends the program where one has no reason."""
    places, without_reason = set(), []
    with open(file_name, encoding="utf-8") as lines:
        for line in lines:
            if not line.strip() or line.startswith("#"):
                continue
            if line.startswith(" "):
                without_reason = []
                continue
            file, _, source = line.strip().partition(": ")
            places.add((file, source))
            without_reason.append(line.strip())
    if without_reason:
        sys.exit(f"{file_name}: no reason is given for {without_reason[-1]}")
    return places


def main(json_file, list_file):
    with open(json_file, encoding="utf-8") as report:
        files = json.load(report)["files"]
    allowed = accepted(list_file)
    used = set()
    problems = []
    totals = defaultdict(lambda: [0, 0, 0, 0])
    for entry in files:
        name = entry["file"]
        with open(name, encoding="utf-8") as source:
            text = source.read().splitlines()
        total = totals[name.split("/")[0]]
        for line in entry["lines"]:
            if line.get("gcovr/noncode"):
                continue
            here = text[line["line_number"] - 1].strip()
            total[0] += 1
            total[1] += line["count"] > 0
            if line["count"] == 0:
                if (name, here) in allowed:
                    used.add((name, here))
                    continue
                problems.append(f"{name}:{line['line_number']}: the line is not run: {here}")
                continue
            branches = [b for b in line.get("branches", []) if not b.get("throw")]
            taken = sum(b["count"] > 0 for b in branches)
            total[2] += len(branches)
            total[3] += taken
            if taken < len(branches):
                if (name, here) in allowed:
                    used.add((name, here))
                else:
                    problems.append(f"{name}:{line['line_number']}: {len(branches) - taken} of {len(branches)} "
                                    f"branches are not run: {here}")
    for name, (lines, run, branches, taken) in sorted(totals.items()):
        print(f"{name:10} lines {run} of {lines}, branches {taken} of {branches}")
    problems += [f"{list_file}: names what is run, or not there: {file}: {source}"
                 for file, source in allowed if (file, source) not in used]
    for problem in problems:
        print(problem)
    print(f"{len(used)} places that are not run are accepted, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

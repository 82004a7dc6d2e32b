"""Tries one mutant after another in a copy of the sources of its own."""

import testing
from build import Build, BuildFailed

SAME, BROKEN, KILLED, SURVIVED = "same code", "does not compile", "killed", "survived"
LINKING = 0.3  # seconds that a program's link takes, about
COMPILING = 2  # and the compilation of one object of those that a header is in


class Worker:
    def __init__(self, root, directory, options, jobs, paths):
        """`paths`: the files that are to be changed; programs without any of them are not run."""
        self.build = Build(root, directory)
        self.build.make_programs(options.programs, jobs)
        self.programs = [one for one in self.build.programs(options.programs) if self._covers(one, paths)]
        self.temporary = directory / "temporary"
        self.temporary.mkdir(exist_ok=True)
        self.longest = options.longest
        self.left_out = []
        self.units = []
        self.hashes = {}
        self.changed_file = None

    def measure(self):
        """Runs every test once, on the sources as they are."""
        for program in self.programs:
            units, left_out = testing.units(program, self.temporary, self.longest)
            self.units += units
            self.left_out += left_out
        for objects in self.build.objects.values():
            for made in objects:
                self.hashes.setdefault(made, self.build.hash(made))

    def share_measures(self, other):
        """Takes over what another worker measured: its tests are the same, at another place. Raises RuntimeError when
        one of them fails without a mistake: it would pass for having noticed every mutant."""
        for program in self.programs:
            testing.units(program, self.temporary, self.longest)
        programs = {program.target: program for program in self.programs}
        self.units = [testing.Unit(programs[unit.program.target], unit.tests, unit.seconds) for unit in other.units]
        for objects in self.build.objects.values():
            for made in objects:
                self.hashes.setdefault(made, self.build.hash(made))

    def begin_file(self, name, original):
        """Mutants of this file follow; the one before gets its own text back."""
        if self.changed_file and self.changed_file[0] != name:
            self.build.write(*self.changed_file)
        if not self.changed_file or self.changed_file[0] != name:
            self.changed_file = (name, original)
            for unit in self.units:
                unit.killed = unit.ran = 0

    def _covers(self, program, paths):
        inputs = self.build.inputs(program.target)
        return any(self.build.objects[path] & inputs for path in paths)

    def _covering(self, name):
        """The units whose program is made of the file, first those that promise most for the time they take."""
        objects = self.build.objects[name]
        units = [unit for unit in self.units if objects & self.build.inputs(unit.program.target)]

        def price(unit):
            compiled = len(objects & self.build.inputs(unit.program.target)) if name.endswith(".h") else 0
            return (unit.seconds + LINKING + COMPILING * compiled) * (unit.ran + 2) / (unit.killed + 1)

        return sorted(units, key=price)

    def attempt(self, mutation):
        """What became of the mutant: (result, the test that noticed it)."""
        self.build.write(mutation.path, mutation.text)
        differs = {}  # program -> whether it has the mistake in its code
        for unit in self._covering(mutation.path):
            target = unit.program.target
            try:
                if target not in differs:
                    differs[target] = self._make(mutation.path, target)
            except BuildFailed:
                return BROKEN, ""
            if not differs[target]:
                continue
            unit.ran += 1
            outcome = testing.run(unit.program, unit.tests, 5 * unit.seconds + 10, self.temporary)
            if outcome.failed:
                unit.killed += 1
                return KILLED, f"{unit.program.name} {outcome.reason}".strip()
        return (SURVIVED if any(differs.values()) else SAME), ""

    def _make(self, name, target):
        objects = sorted(self.build.objects[name] & self.build.inputs(target))
        self.build.make(objects)
        if all(self.build.hash(made) == self.hashes[made] for made in objects):
            return False
        self.build.make([target])
        return True

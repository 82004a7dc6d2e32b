"""What the Python module gives and refuses. Run by `run`, which makes the tables and says where everything is."""

import datetime
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import typing
import unittest

import systemprovider

TABLES = pathlib.Path(os.environ["VQ_TABLES"])
SAMPLES = pathlib.Path(os.environ["VQ_SAMPLES"])
MODULE = pathlib.Path(os.environ["VQ_LIBRARIES"]) / "libSystemProvider.so"


def sample(name):
    return systemprovider.inventory(from_dump=SAMPLES / name)


class Inventory(unittest.TestCase):
    def test_has_the_facts_of_a_table(self):
        machine = sample("server.bin")
        self.assertEqual(machine["bios"]["version"], "1.27")
        self.assertEqual(machine["bios"]["languages"], ["en|US|iso8859-1", "fr|FR|iso8859-1", "ja|JP|unicode"])
        self.assertEqual(machine["bios"]["release_date"], datetime.date(2011, 3, 7))
        self.assertEqual(machine["bios"]["smbios_version"], "2.6")
        self.assertEqual(machine["bios"]["loaded_ending_address"], 188416)
        self.assertEqual(machine["computer_system"]["model"], "8837ABC")
        self.assertEqual(machine["chassis"]["serial_number"], "CH5500417")
        self.assertEqual([board["product"] for board in machine["base_boards"]], ["NB-410-MAIN", "TV-510-RISER"])
        self.assertEqual([cache["size"] for cache in machine["caches"]], [192, 1536, 12288, 0])
        self.assertEqual([firmware["version"] for firmware in machine["firmware"]], ["1.12", "2.05"])
        self.assertEqual(machine["firmware"][0]["release_date"], None)
        self.assertEqual(machine["ports"][0]["connectors"], [0, 8])
        self.assertEqual(machine["slots"][0], {"designation": "PCI Express x16"})
        self.assertEqual(
            machine["configuration_options"],
            ["JP1: clear CMOS", "JP2: boot block (±5 V)", " SW1-3: console redirection "],
        )

    def test_tells_the_running_system(self):
        running = sample("desktop.bin")["operating_system"]
        self.assertEqual(running["name"], "Linux")
        self.assertEqual(running["version"], os.uname().release)
        self.assertIs(running["distributed"], False)
        self.assertGreater(running["free_physical_memory"], 0)
        self.assertLess(abs(running["local_date_time"] - datetime.datetime.now()), datetime.timedelta(minutes=1))
        self.assertLess(running["last_boot_up_time"], running["local_date_time"])

    def test_has_the_keys_and_types_that_it_declares(self):
        self.check(sample("server.bin"), systemprovider.Inventory)

    def check(self, value, kind):
        origin, arguments = typing.get_origin(kind), typing.get_args(kind)
        if origin is list:
            self.assertIs(type(value), list)
            for element in value:
                self.check(element, arguments[0])
        elif origin is typing.Union:
            self.assertIn(type(value), arguments)
        elif kind in (str, int, bool):
            self.assertIs(type(value), kind)
        else:
            declared = typing.get_type_hints(kind)
            self.assertEqual(sorted(value), sorted(declared))
            for key, element in value.items():
                self.check(element, declared[key])

    def test_of_the_machine_is_read_without_a_dump(self):
        self.assertEqual(systemprovider.inventory()["computer_system"]["name"], os.uname().nodename)

    def test_of_a_machine_and_of_dumps_follow_each_other(self):
        for _ in range(3):
            systemprovider.inventory()
            self.assertEqual(len(sample("server.bin")["slots"]), 5)
            self.assertEqual(len(sample("desktop.bin")["slots"]), 1)

    def test_of_a_machine_without_records_has_empty_lists(self):
        machine = systemprovider.inventory(from_dump=TABLES / "empty")
        self.assertEqual((machine["slots"], machine["configuration_options"]), ([], []))
        self.assertEqual(machine["chassis"]["manufacturer"], "")
        self.assertIs(machine["bios"]["release_date"], None)

    def test_takes_a_file_by_any_kind_of_name(self):
        name = str(SAMPLES / "desktop.bin")
        for file in (name, name.encode(), pathlib.Path(name)):
            self.assertEqual(len(systemprovider.inventory(from_dump=file, module=MODULE)["slots"]), 1)

    def test_finds_files_where_the_program_stands_and_leaves_it_there(self):
        before = os.getcwd()
        try:
            os.chdir(SAMPLES)
            self.assertEqual(len(systemprovider.inventory(from_dump="desktop.bin")["slots"]), 1)
            self.assertEqual(os.getcwd(), str(SAMPLES.resolve()))
        finally:
            os.chdir(before)

    def test_has_none_for_a_date_that_cannot_be(self):
        self.assertIs(systemprovider.inventory(from_dump=TABLES / "no-such-day")["bios"]["release_date"], None)

    def test_reads_a_byte_that_is_no_utf8_as_latin1(self):
        slots = systemprovider.inventory(from_dump=TABLES / "odd-text")["slots"]
        self.assertEqual(slots, [{"designation": "été ÿ"}])

    def test_takes_a_text_of_60_kilobytes(self):
        slots = systemprovider.inventory(from_dump=TABLES / "long-text")["slots"]
        self.assertEqual(slots, [{"designation": "x" * 60000}])

    def test_takes_65535_structures(self):
        ports = systemprovider.inventory(from_dump=TABLES / "large")["ports"]
        self.assertGreaterEqual(len(ports), 65534)
        with self.assertRaises(IndexError):
            ports[65535]

    def test_is_read_by_threads_at_once(self):
        found = []
        threads = [threading.Thread(target=lambda: found.append(len(sample("server.bin")["slots"]))) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(found, [5, 5, 5, 5])

    def test_writes_nothing(self):
        program = "import sys, systemprovider; systemprovider.inventory(from_dump=sys.argv[1])"
        command = [sys.executable, "-B", "-c", program, str(SAMPLES / "server.bin")]
        done = subprocess.run(command, capture_output=True, check=True)
        self.assertEqual((done.stdout, done.stderr), (b"", b""))


class Failure(unittest.TestCase):
    def refused(self, **arguments):
        with self.assertRaises(systemprovider.Error) as caught:
            systemprovider.inventory(**arguments)
        return str(caught.exception)

    def test_of_a_table_that_would_never_end(self):
        end = ", which the module would count without end: update the firmware of the machine"
        for name, what in (("languages", "13 announces 255 languages"), ("options", "12 announces 255 configuration options")):
            file = TABLES / f"endless-{name}"
            self.assertEqual(self.refused(from_dump=file), f"{file}: a structure of type {what}{end}")

    def test_of_the_module_is_an_exception_of_python(self):
        self.assertIn("bracketed part of one character", self.refused(from_dump=TABLES / "one-character"))

    def test_of_a_file_that_is_no_dump(self):
        self.assertTrue(self.refused(from_dump="/etc/passwd").startswith("/etc/passwd: no SMBIOS entry point"))
        self.assertEqual(self.refused(from_dump="/nonexistent"), "cannot open /nonexistent: No such file or directory")
        self.assertEqual(self.refused(from_dump="/"), "/: it must be a regular file")

    def test_of_a_name_that_no_file_can_have(self):
        self.assertEqual(self.refused(from_dump=""), "'' is no file name")
        self.assertEqual(self.refused(from_dump="a\0b"), "'a\\x00b' is no file name")
        with self.assertRaises(TypeError):
            systemprovider.inventory(from_dump=7)

    def test_of_a_module_that_is_not_there_or_none(self):
        self.assertEqual(
            self.refused(module="/nonexistent"), "cannot load /nonexistent: No such file or directory"
        )
        library = MODULE.with_name("libvqcommon.so")
        self.assertEqual(
            self.refused(module=library), f"{library} does not export init: it is no module of this version"
        )

    def test_of_a_module_of_the_other_width_without_its_libraries_or_a_function(self):
        whole = MODULE.read_bytes()
        magic = whole[:5]
        other = magic[:4] + bytes([3 - magic[4]])
        for old, new, reason in (
            (magic, other, "wrong ELF class"),
            (b"libvqpegasus.so", b"libvqnothere.so", "libvqnothere.so: cannot open shared object file"),
            (b"getSlotDesignation", b"getSlotDesignatiom", "does not export getSlotDesignation"),
        ):
            with tempfile.NamedTemporaryFile() as file:
                file.write(whole.replace(old, new, 1))
                file.flush()
                self.assertIn(reason, self.refused(module=file.name))

    def test_without_the_library_says_what_to_install(self):
        program = "import systemprovider; systemprovider.inventory()"
        environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
        done = subprocess.run([sys.executable, "-B", "-c", program], capture_output=True, env=environment, text=True)
        self.assertEqual(done.returncode, 1)
        self.assertIn("systemprovider.Error: cannot load libsystemprovider_load.so.1", done.stderr)
        self.assertIn("install the package systemprovider", done.stderr)


if __name__ == "__main__":
    unittest.main()

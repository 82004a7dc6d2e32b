"""What an inventory is made of. A text that the machine does not tell is empty, a number 0, a date None."""

from __future__ import annotations

import datetime
from typing import List, Optional, TypedDict


class ComputerSystem(TypedDict):
    name: str  # the kernel's node name
    model: str  # of the product name, what stands between "-[" and "]-"
    description: str  # of the product name, what stands around that
    owner_name: str  # no source, always empty
    owner_contact: str  # no source, always empty


class OperatingSystem(TypedDict):
    name: str
    version: str  # the kernel's release
    code_set: str
    language_edition: str
    type: int  # CIM OSType: 36, Linux
    distributed: bool  # no source, always False
    current_time_zone: int  # minutes east of UTC
    max_number_of_processes: int
    number_of_processes: int
    number_of_users: int  # no source, always 0
    number_of_licensed_users: int  # no source, always 0
    max_process_memory_size: int  # KiB; no source, always 0
    free_space_in_paging_files: int  # KiB; no source, always 0
    size_stored_in_paging_files: int  # KiB; no source, always 0
    total_visible_memory_size: int  # KiB; no source, always 0
    free_physical_memory: int  # KiB
    free_virtual_memory: int  # KiB; no source, always 0
    total_virtual_memory_size: int  # KiB; no source, always 0
    total_swap_space_size: int  # KiB
    install_date: Optional[datetime.datetime]  # not known: always the first instant of 1970 in UTC, as local time
    local_date_time: Optional[datetime.datetime]  # local time
    last_boot_up_time: Optional[datetime.datetime]  # local time


class Bios(TypedDict):
    manufacturer: str
    version: str
    build_number: str
    serial_number: str  # of the system
    current_language: str
    languages: List[str]
    release_date: Optional[datetime.date]  # None also where the table tells one that can't be
    smbios_major_version: int  # 0 on a machine without SMBIOS
    smbios_minor_version: int
    smbios_version: str  # both as text, "2.3"
    loaded_starting_address: int  # a segment, not multiplied by 16
    loaded_ending_address: int  # computed from the segment


class Firmware(TypedDict):
    name: str
    version: str
    manufacturer: str
    serial_number: str  # no source, always empty
    build_number: str
    release_date: Optional[datetime.date]  # no source, always None


class Chassis(TypedDict):
    manufacturer: str
    version: str
    serial_number: str
    asset_tag: str


class BaseBoard(TypedDict):
    manufacturer: str
    product: str
    version: str  # empty for every board whose product can be read
    serial_number: str
    asset_tag: str
    location: str


class Cache(TypedDict):
    designation: str
    purpose: str  # the designation once more
    associativity: int  # the standard's code
    write_policy: int  # 4 write through, 3 write back, 5 varies with address, 2 unknown
    type: int  # the standard's code
    location: int  # 0 internal, 1 external, 3 unknown
    level: int  # 3, 4, 5 for levels 1, 2, 3; 0 for any other
    error_correction_type: int  # the standard's code
    speed: int  # nanoseconds; 0 when unknown
    size: int  # kilobytes
    maximum_size: int  # kilobytes
    installed_size: int  # the same as size
    number_of_blocks: int  # the size in units of its own granularity, 1 K or 64 K
    supported_sram_type: List[int]  # no source, always empty
    current_sram_type: List[int]  # no source, always empty


class Port(TypedDict):
    name: str  # no source, always empty
    model: str  # no source, always empty
    manufacturer: str  # no source, always empty
    internal_reference_designator: str
    external_reference_designator: str
    type: int  # the standard's code
    connectors: List[int]  # inner, then outer, the standard's codes


class Slot(TypedDict):
    designation: str


class Inventory(TypedDict):
    computer_system: ComputerSystem
    operating_system: OperatingSystem
    bios: Bios
    firmware: List[Firmware]  # other than the system BIOS
    chassis: Chassis
    base_boards: List[BaseBoard]
    configuration_options: List[str]
    caches: List[Cache]
    ports: List[Port]
    slots: List[Slot]

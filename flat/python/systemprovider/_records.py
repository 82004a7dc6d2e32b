"""The records of systemprovider_load.h as ctypes has them, field by field in the order of the header."""

from __future__ import annotations

import codecs
import ctypes
import datetime
from typing import Any, Dict, List, Optional, Tuple

# Kinds of a field: how it lies in memory.
_Text = ctypes.c_char_p
_Int = ctypes.c_int
_Unsigned = ctypes.c_uint
_Long = ctypes.c_ulonglong


class _Moment(ctypes.c_char_p):
    """A text yyyymmddhhmmss..., in local time."""


class _Day(ctypes.c_char_p):
    """A text yyyymmdd..., of which the rest means nothing."""


class _Flag(ctypes.c_int):
    """0 or 1."""


class Texts(ctypes.Structure):
    _fields_ = [("count", ctypes.c_size_t), ("values", ctypes.POINTER(ctypes.c_char_p))]


class Numbers(ctypes.Structure):
    _fields_ = [("count", ctypes.c_size_t), ("values", ctypes.POINTER(ctypes.c_int32))]


class ComputerSystem(ctypes.Structure):
    _fields_ = [
        ("name", _Text),
        ("model", _Text),
        ("description", _Text),
        ("owner_name", _Text),
        ("owner_contact", _Text),
    ]


class OperatingSystem(ctypes.Structure):
    _fields_ = [
        ("name", _Text),
        ("version", _Text),
        ("code_set", _Text),
        ("language_edition", _Text),
        ("type", _Int),
        ("distributed", _Flag),
        ("current_time_zone", _Int),
        ("max_number_of_processes", _Unsigned),
        ("number_of_processes", _Unsigned),
        ("number_of_users", _Unsigned),
        ("number_of_licensed_users", _Unsigned),
        ("max_process_memory_size", _Long),
        ("free_space_in_paging_files", _Long),
        ("size_stored_in_paging_files", _Long),
        ("total_visible_memory_size", _Long),
        ("free_physical_memory", _Long),
        ("free_virtual_memory", _Long),
        ("total_virtual_memory_size", _Long),
        ("total_swap_space_size", _Long),
        ("install_date", _Moment),
        ("local_date_time", _Moment),
        ("last_boot_up_time", _Moment),
    ]


class Bios(ctypes.Structure):
    _fields_ = [
        ("manufacturer", _Text),
        ("version", _Text),
        ("build_number", _Text),
        ("serial_number", _Text),
        ("current_language", _Text),
        ("languages", Texts),
        ("release_date", _Day),
        ("smbios_major_version", _Int),
        ("smbios_minor_version", _Int),
        ("smbios_version", _Text),
        ("loaded_starting_address", _Long),
        ("loaded_ending_address", _Long),
    ]


class Firmware(ctypes.Structure):
    _fields_ = [
        ("name", _Text),
        ("version", _Text),
        ("manufacturer", _Text),
        ("serial_number", _Text),
        ("build_number", _Text),
        ("release_date", _Day),
    ]


class Chassis(ctypes.Structure):
    _fields_ = [
        ("manufacturer", _Text),
        ("version", _Text),
        ("serial_number", _Text),
        ("asset_tag", _Text),
    ]


class BaseBoard(ctypes.Structure):
    _fields_ = [
        ("manufacturer", _Text),
        ("product", _Text),
        ("version", _Text),
        ("serial_number", _Text),
        ("asset_tag", _Text),
        ("location", _Text),
    ]


class Cache(ctypes.Structure):
    _fields_ = [
        ("designation", _Text),
        ("purpose", _Text),
        ("associativity", _Int),
        ("write_policy", _Int),
        ("type", _Int),
        ("location", _Int),
        ("level", _Int),
        ("error_correction_type", _Int),
        ("speed", _Unsigned),
        ("size", _Unsigned),
        ("maximum_size", _Unsigned),
        ("installed_size", _Unsigned),
        ("number_of_blocks", _Long),
        ("supported_sram_type", Numbers),
        ("current_sram_type", Numbers),
    ]


class Port(ctypes.Structure):
    _fields_ = [
        ("name", _Text),
        ("model", _Text),
        ("manufacturer", _Text),
        ("internal_reference_designator", _Text),
        ("external_reference_designator", _Text),
        ("type", _Int),
        ("connectors", Numbers),
    ]


class Slot(ctypes.Structure):
    _fields_ = [("designation", _Text)]


def _latin1(error: UnicodeError) -> Tuple[str, int]:
    """A byte that is no UTF-8 stands for the Latin-1 character of its value, as in all answers of the module."""
    if not isinstance(error, UnicodeDecodeError):
        raise error
    return chr(error.object[error.start]), error.start + 1


codecs.register_error("systemprovider-latin1", _latin1)


def text_of(data: Optional[bytes]) -> str:
    """The text of these bytes."""
    return (data or b"").decode("utf-8", "systemprovider-latin1")


def _date_of(data: bytes, form: str, length: int) -> Optional[datetime.datetime]:
    try:
        return datetime.datetime.strptime(data[:length].decode("ascii"), form)
    except ValueError:  # no date, or one that can't be
        return None


def _value_of(kind: Any, value: Any) -> Any:
    if kind is _Moment:
        return _date_of(value.value, "%Y%m%d%H%M%S", 14)
    if kind is _Day:
        moment = _date_of(value.value, "%Y%m%d", 8)
        return moment.date() if moment else None
    if kind is _Flag:
        return bool(value.value)
    if kind is Texts:
        return texts_of(value)
    if kind is Numbers:
        return value.values[: value.count]
    if kind is _Text:
        return text_of(value)
    return value


def texts_of(texts: Texts) -> List[str]:
    return [text_of(text) for text in texts.values[: texts.count]]


def record_of(record: ctypes.Structure) -> Dict[str, Any]:
    """The fields of a record by their names."""
    return {name: _value_of(kind, getattr(record, name)) for name, kind in record._fields_}

"""The functions of systemprovider_load.h, by ctypes."""

from __future__ import annotations

import ctypes
import os
from typing import Any, Dict, List, Optional, Union, cast

from systemprovider import _records
from systemprovider._types import Inventory

Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]

_LIBRARY = "libsystemprovider_load.so.1"

# What an inventory has once, and what it has in any number: key, record, function.
_SINGLE = (
    ("computer_system", _records.ComputerSystem, "systemProviderComputerSystem"),
    ("operating_system", _records.OperatingSystem, "systemProviderOperatingSystem"),
    ("bios", _records.Bios, "systemProviderBios"),
    ("chassis", _records.Chassis, "systemProviderChassis"),
)
_LISTS = (
    ("firmware", _records.Firmware, "systemProviderFirmware"),
    ("base_boards", _records.BaseBoard, "systemProviderBaseBoard"),
    ("caches", _records.Cache, "systemProviderCache"),
    ("ports", _records.Port, "systemProviderPort"),
    ("slots", _records.Slot, "systemProviderSlot"),
)


class Error(Exception):
    """The inventory can't be read; the text tells why and what would help."""

    __module__ = "systemprovider"  # where it is imported from


def _load() -> ctypes.CDLL:
    try:
        library = ctypes.CDLL(_LIBRARY)
    except OSError as error:
        width = 8 * ctypes.sizeof(ctypes.c_void_p)
        raise Error(
            f"cannot load {_LIBRARY}: {error}; install the package systemprovider of this {width}-bit Python's width"
        ) from None
    _declare(library, "systemProviderOpen", ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p)
    _declare(library, "systemProviderClose", None, ctypes.c_void_p)
    _declare(library, "systemProviderError", ctypes.c_char_p)
    _declare(library, "systemProviderRead", ctypes.c_void_p, ctypes.c_void_p)
    _declare(library, "systemProviderFree", None, ctypes.c_void_p)
    for _, record, function in _SINGLE:
        _declare(library, function, ctypes.POINTER(record), ctypes.c_void_p)
    _declare(library, "systemProviderConfigurationOptions", ctypes.POINTER(_records.Texts), ctypes.c_void_p)
    for _, record, function in _LISTS:
        _declare(library, function + "Count", ctypes.c_size_t, ctypes.c_void_p)
        _declare(library, function, ctypes.POINTER(record), ctypes.c_void_p, ctypes.c_size_t)
    return library


def _declare(library: ctypes.CDLL, name: str, result: Any, *arguments: Any) -> None:
    try:
        function = getattr(library, name)
    except AttributeError:
        raise Error(f"{_LIBRARY} does not export {name}: it is of another version than this module") from None
    function.restype = result
    function.argtypes = arguments


def _path(file: Optional[Path]) -> Optional[bytes]:
    if file is None:
        return None
    path = os.fsencode(file)
    if not path or b"\0" in path:
        raise Error(f"{file!r} is no file name")
    return path


def _list(library: ctypes.CDLL, function: str, handle: int) -> List[Dict[str, Any]]:
    count = getattr(library, function + "Count")(handle)
    get = getattr(library, function)
    return [_records.record_of(get(handle, index).contents) for index in range(count)]


def _dictionary(library: ctypes.CDLL, handle: int) -> Inventory:
    result: Dict[str, Any] = {}
    for key, _, function in _SINGLE:
        result[key] = _records.record_of(getattr(library, function)(handle).contents)
    result["configuration_options"] = _records.texts_of(library.systemProviderConfigurationOptions(handle).contents)
    for key, _, function in _LISTS:
        result[key] = _list(library, function, handle)
    return cast(Inventory, result)


def inventory(*, from_dump: Optional[Path] = None, module: Optional[Path] = None) -> Inventory:
    """The inventory of this machine, read anew; as root, since nobody else can read the SMBIOS table.

    from_dump is a file of `dmidecode --dump-bin` to read in place of the machine's table. module is the path of a
    libSystemProvider.so; without it the installed one is asked. Raises Error.
    """
    module_path, dump_path = _path(module), _path(from_dump)
    library = _load()
    loaded = library.systemProviderOpen(module_path, dump_path)
    try:
        handle = library.systemProviderRead(loaded)
        reason = None if handle else _records.text_of(library.systemProviderError())
    finally:
        library.systemProviderClose(loaded)
    if reason is not None:
        raise Error(reason)
    try:
        return _dictionary(library, handle)
    finally:
        library.systemProviderFree(handle)

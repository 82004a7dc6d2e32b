"""The hardware inventory of this machine, as the CIM provider module SystemProvider tells it.

>>> import systemprovider
>>> machine = systemprovider.inventory()
>>> machine["bios"]["version"]
'1.27'
>>> [slot["designation"] for slot in machine["slots"]]
['PCI 1', 'PCI 2']

`inventory` reads the SMBIOS table of the machine, for which it must be root, or a dump of one. What can't be read is an
`Error` with the reason. Nothing is written to standard output. The keys are those of the classes below.
"""

from systemprovider._library import Error, inventory
from systemprovider._types import (
    BaseBoard,
    Bios,
    Cache,
    Chassis,
    ComputerSystem,
    Firmware,
    Inventory,
    OperatingSystem,
    Port,
    Slot,
)

__all__ = [
    "BaseBoard",
    "Bios",
    "Cache",
    "Chassis",
    "ComputerSystem",
    "Error",
    "Firmware",
    "Inventory",
    "OperatingSystem",
    "Port",
    "Slot",
    "inventory",
]

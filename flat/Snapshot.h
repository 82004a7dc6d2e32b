#pragma once

// The snapshot objects that flat/systemprovider.h declares, with the classes of their records.

#include "flat/systemprovider.h"
#include "inventory/BaseBoard.h"
#include "inventory/Bios.h"
#include "inventory/Cache.h"
#include "inventory/Chassis.h"
#include "inventory/ComputerSystem.h"
#include "inventory/Firmware.h"
#include "inventory/Port.h"
#include "inventory/Slot.h"
#include "os/OperatingSystem.h"

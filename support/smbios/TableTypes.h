#pragma once

#include "support/smbios/SmBios.h"

namespace VQ
{

// One class for each structure type that the inventory reads. A class adds nothing to SmBios::Table but a type of its
// own; it is made by copying the structure found in the table.

/// BIOS Information (type 0)
class VQ_EXPORT TableType0 : public SmBios::Table
{
public:
    explicit TableType0(const Table& table) : Table(table) {}
    ~TableType0() override;
};

/// System Information (type 1)
class VQ_EXPORT TableType1 : public SmBios::Table
{
public:
    explicit TableType1(const Table& table) : Table(table) {}
    ~TableType1() override;
};

/// Baseboard (or Module) Information (type 2)
class VQ_EXPORT TableType2 : public SmBios::Table
{
public:
    explicit TableType2(const Table& table) : Table(table) {}
    ~TableType2() override;
};

/// System Enclosure or Chassis (type 3)
class VQ_EXPORT TableType3 : public SmBios::Table
{
public:
    explicit TableType3(const Table& table) : Table(table) {}
    ~TableType3() override;
};

/// Cache Information (type 7)
class VQ_EXPORT TableType7 : public SmBios::Table
{
public:
    explicit TableType7(const Table& table) : Table(table) {}
    ~TableType7() override;
};

/// Port Connector Information (type 8)
class VQ_EXPORT TableType8 : public SmBios::Table
{
public:
    explicit TableType8(const Table& table) : Table(table) {}
    ~TableType8() override;
};

/// System Slots (type 9)
class VQ_EXPORT TableType9 : public SmBios::Table
{
public:
    explicit TableType9(const Table& table) : Table(table) {}
    ~TableType9() override;
};

/// OEM Strings (type 11)
class VQ_EXPORT TableType11 : public SmBios::Table
{
public:
    explicit TableType11(const Table& table) : Table(table) {}
    ~TableType11() override;
};

/// System Configuration Options (type 12)
class VQ_EXPORT TableType12 : public SmBios::Table
{
public:
    explicit TableType12(const Table& table) : Table(table) {}
    ~TableType12() override;
};

/// BIOS Language Information (type 13)
class VQ_EXPORT TableType13 : public SmBios::Table
{
public:
    explicit TableType13(const Table& table) : Table(table) {}
    ~TableType13() override;
};

}

#include "Show.h"

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>

#include <limits>

using namespace Pegasus;

namespace
{
template <class Element> Array<Element> arrayOf(const Element& first, const Element& second)
{
    Array<Element> array;
    array.append(first);
    array.append(second);
    return array;
}

/// The value itself, what comes back from it, and what of an array of it.
template <class T> void scalarAndArray(const char* type, const T& first, const T& second)
{
    const std::string name(type);
    print("CIMValue of " + name, [&] { return shown(CIMValue(first)); });
    print("CIMValue of another " + name, [&] { return shown(CIMValue(second)); });
    print("get(" + name + ")", [&] {
        T out = T();
        CIMValue(second).get(out);
        return shown(out) + (out == second ? " as given" : " changed");
    });
    print("get(" + name + ") of a null", [&] {
        T out = second;
        CIMValue(CIMValue(first).getType(), false).get(out);
        return shown(out);
    });
    print("get(" + name + ") of an array", [&] {
        T out = second;
        CIMValue(arrayOf(first, second)).get(out);
        return shown(out);
    });
    print("CIMValue of an array of " + name, [&] { return shown(CIMValue(arrayOf(first, second))); });
    print("CIMValue of an empty array of " + name, [&] { return shown(CIMValue(Array<T>())); });
    print("get(Array<" + name + ">)", [&] {
        Array<T> out;
        CIMValue(arrayOf(first, second)).get(out);
        return shown(out.size()) + (out[0] == first && out[1] == second ? " as given" : " changed");
    });
    print("get(Array<" + name + ">) of a scalar", [&] {
        Array<T> out;
        CIMValue(first).get(out);
        return shown(out.size());
    });
    print("equality of " + name, [&] {
        const CIMValue array(arrayOf(first, second));
        return shown(CIMValue(first) == CIMValue(first)) + ' ' + shown(CIMValue(first) == CIMValue(second)) + ' ' +
               shown(array == CIMValue(arrayOf(first, second))) + ' ' + shown(array == CIMValue(arrayOf(first, first)));
    });
}

template <class Integer> void integer(const char* type)
{
    scalarAndArray<Integer>(type, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max());
}

void nulls()
{
    SHOW(CIMValue());
    for (int type = CIMTYPE_BOOLEAN; type <= CIMTYPE_DATETIME; ++type) {
        const CIMType cimType = static_cast<CIMType>(type);
        print(std::string("a null ") + cimTypeToString(cimType), [&] { return shown(CIMValue(cimType, false)); });
        print(std::string("a null array of ") + cimTypeToString(cimType),
              [&] { return shown(CIMValue(cimType, true)); });
    }
    SHOW(CIMValue(CIMTYPE_UINT16, true, 7));
    SHOW(CIMValue(CIMTYPE_UINT16, false, 7).getArraySize());
    SHOW(CIMValue(CIMTYPE_UINT16, false) == CIMValue(CIMTYPE_UINT16, false));
    SHOW(CIMValue(CIMTYPE_UINT16, false) == CIMValue(CIMTYPE_UINT32, false));
    SHOW(CIMValue(CIMTYPE_UINT16, false) == CIMValue(Uint16(0)));
    SHOW(CIMValue(Uint16(0)) == CIMValue(CIMTYPE_UINT16, false));
    SHOW(CIMValue(CIMTYPE_UINT16, true) == CIMValue(Array<Uint16>()));
}

void types()
{
    for (int type = CIMTYPE_BOOLEAN; type <= CIMTYPE_INSTANCE; ++type)
        SHOW(static_cast<CIMType>(type));
    SHOW(CIMValue(Uint16(1)).typeCompatible(CIMValue(Uint16(2))));
    SHOW(CIMValue(Uint16(1)).typeCompatible(CIMValue(Sint16(1))));
    SHOW(CIMValue(Uint16(1)).typeCompatible(CIMValue(Array<Uint16>())));
    SHOW(CIMValue(Uint16(1)).typeCompatible(CIMValue(CIMTYPE_UINT16, false)));
    SHOW(CIMValue(Uint16(1)) == CIMValue(Uint32(1)));
    String text("as before");
    DO(CIMValue(Uint16(1)).get(text));
    DO(CIMValue(CIMTYPE_UINT16, false).get(text));
    SHOW(text);
}

void sharing()
{
    Array<String> texts = arrayOf(String("en|US|iso8859-1"), String("a, \"b\""));
    const CIMValue value(texts);
    CIMValue copy(value);
    DO(texts[0] = String("changed"));
    Array<String> out;
    DO(value.get(out));
    DO(out.append(String("more")));
    SHOW(value);
    DO(copy = CIMValue(Boolean(true)));
    SHOW(value);
    SHOW(copy);
    String text("first");
    const CIMValue ofText(text);
    DO(text.append(Char16('!')));
    SHOW(ofText);
}
}

void showValues()
{
    section("CIMValue, CIMType");
    types();
    nulls();
    scalarAndArray<Boolean>("Boolean", true, false);
    integer<Uint8>("Uint8");
    integer<Sint8>("Sint8");
    integer<Uint16>("Uint16");
    integer<Sint16>("Sint16");
    integer<Uint32>("Uint32");
    integer<Sint32>("Sint32");
    integer<Uint64>("Uint64");
    integer<Sint64>("Sint64");
    scalarAndArray<String>("String", "", "caf\xC3\xA9 \"x\"\\");
    scalarAndArray<CIMDateTime>("CIMDateTime", CIMDateTime(), String("20050307120000.000000+060"));
    sharing();
}

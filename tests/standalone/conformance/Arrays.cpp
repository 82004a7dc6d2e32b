#include "Show.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>

using namespace Pegasus;

namespace
{
template <class Element> std::string elements(const Array<Element>& array)
{
    std::string all = std::to_string(array.size()) + ":";
    for (Uint32 i = 0; i < array.size(); ++i)
        all += ' ' + shown(array[i]);
    return all;
}

void changes()
{
    Array<Uint32> numbers;
    SHOW(elements(numbers).c_str());
    SHOW(numbers[0]);
    for (Uint32 i = 0; i < 10; ++i)
        numbers.append(i * i);
    SHOW(elements(numbers).c_str());
    DO(numbers.remove(0));
    DO(numbers.remove(2, 4));
    DO(numbers.remove(4));
    SHOW(elements(numbers).c_str());
    DO(numbers.insert(1, 77));
    DO(numbers.insert(numbers.size(), 78));
    DO(numbers.insert(numbers.size() + 1, 79));
    DO(numbers.prepend(99));
    SHOW(elements(numbers).c_str());

    Array<Uint32> copy(numbers);
    DO(copy[0] = 5);
    DO(copy.append(6));
    SHOW(elements(numbers).c_str());
    SHOW(elements(copy).c_str());
    DO(numbers.appendArray(copy));
    DO(numbers.appendArray(Array<Uint32>()));
    SHOW(elements(numbers).c_str());
    DO(copy.appendArray(copy));
    DO(copy.append(copy[0]));
    SHOW(elements(copy).c_str());
    copy = numbers;
    SHOW(copy == numbers);
    DO(copy[1] = 1000);
    SHOW(copy == numbers);
    DO(copy.remove(1));
    SHOW(copy == numbers);
    const Array<Uint32>& constant = numbers;
    SHOW(constant[0]);
    SHOW(constant[numbers.size()]);
    SHOW(numbers[numbers.size()]);
    SHOW(numbers[PEG_NOT_FOUND]);
    DO(numbers.clear());
    SHOW(elements(numbers).c_str());
    SHOW(numbers == Array<Uint32>());
}

void keepsTexts()
{
    Array<String> texts;
    DO(texts.append(String("one")));
    DO(texts.append(String()));
    Array<String> copy(texts);
    DO(copy[0].append(Char16('!')));
    SHOW(elements(texts).c_str());
    SHOW(elements(copy).c_str());
    for (Uint32 i = 0; i < 20; ++i)
        texts.append(texts[0]);
    SHOW(texts.size());
    SHOW(texts[21]);
}

template <class Element> void holds(const char* type)
{
    print(std::string("20 default elements of type ") + type + ", one of them removed", [] {
        Array<Element> array;
        for (Uint32 i = 0; i < 20; ++i)
            array.append(Element());
        array.remove(3);
        const Array<Element> copy(array);
        return shown(copy.size());
    });
}
}

void showArrays()
{
    section("Array");
    changes();
    keepsTexts();
    holds<Boolean>("Boolean");
    holds<Uint64>("Uint64");
    holds<CIMDateTime>("CIMDateTime");
    holds<CIMName>("CIMName");
    holds<CIMKeyBinding>("CIMKeyBinding");
    holds<CIMObjectPath>("CIMObjectPath");
    holds<CIMProperty>("CIMProperty");
    holds<CIMInstance>("CIMInstance");
    holds<CIMParamValue>("CIMParamValue");
    holds<CIMValue>("CIMValue");
}

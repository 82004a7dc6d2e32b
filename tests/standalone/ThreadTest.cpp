// Several threads copy, read and drop objects that share what they hold. Compiled together with the library under the
// thread sanitizer, which ends the program at the first race. Wrong totals end it with 1.

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <cstdio>
#include <thread>
#include <vector>

using namespace Pegasus;

namespace
{
constexpr int THREADS = 4;
constexpr int ROUNDS = 2000;

template <class T> Array<T> arrayOf(const T& element, int count)
{
    Array<T> array;
    for (int i = 0; i < count; ++i)
        array.append(element);
    return array;
}

/// One object of each kind. Every thread works on a Sample of its own that was copied from the same one.
struct Sample
{
    String string = "a text";
    Array<String> array = arrayOf(String("an element"), 3);
    CIMValue value = CIMValue(String("a value"));
    CIMObjectPath path = CIMObjectPath(String("//h/root:C.a=\"1\",b=2"));
    CIMInstance instance = CIMInstance(CIMName("C"));
    CIMConstInstance constant = CIMConstInstance(instance);
    CIMProperty property = CIMProperty(CIMName("P"), CIMValue(arrayOf(Uint16(1), 4)));
    CIMParamValue parameter = CIMParamValue("Force", CIMValue(Boolean(true)));
    CIMException exception = CIMException(CIM_ERR_FAILED, "a failure");

    Sample()
    {
        instance.addProperty(property);
        instance.setPath(path);
    }
};

/// The sum of the sizes of everything that is read.
Uint32 read(const Sample& sample)
{
    String text;
    sample.value.get(text);
    return sample.string.size() + sample.array.size() + text.size() + sample.path.getKeyBindings().size() +
           sample.path.toString().size() + sample.instance.getPropertyCount() +
           sample.constant.getProperty(0).getValue().getArraySize() +
           sample.instance.clone().getProperty(0).getName().getString().size() +
           sample.property.getValue().getArraySize() + sample.parameter.getParameterName().size() +
           sample.exception.getMessage().size();
}

constexpr Uint32 EXPECTED = 6 + 3 + 7 + 2 + 20 + 1 + 4 + 1 + 4 + 5 + 9;

void work(Sample own, Uint32& failures)
{
    for (int i = 0; i < ROUNDS; ++i) {
        Sample copy(own);
        if (read(copy) != EXPECTED)
            ++failures;
        copy.string.append(Char16('!')); // the values are the thread's own
        copy.array.append(String("more"));
        copy.path.setClassName(CIMName("D"));
        copy = own;
        own = copy;
    }
}
}

int main()
{
    std::vector<Uint32> failures(THREADS, 0);
    {
        const Sample sample;
        std::vector<std::thread> threads;
        threads.reserve(failures.size());
        for (Uint32& count : failures)
            threads.emplace_back(work, sample, std::ref(count));
        for (std::thread& thread : threads)
            thread.join();
    }
    Uint32 total = 0;
    for (const Uint32 count : failures)
        total += count;
    std::printf("%d threads, %d rounds each, %u wrong\n", THREADS, ROUNDS, total);
    return total == 0 ? 0 : 1;
}

#include "support/common/System.h"

#include "support/common/Text.h"

#include <sys/utsname.h>

namespace VQ
{

std::wstring System::getName()
{
    utsname names{};
    uname(&names);
    return make_wstring(names.nodename);
}

}

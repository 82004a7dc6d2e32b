#include "companions/bmc/Device.h"
#include "companions/bmc/Driver.h"

#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

using namespace VQ;

namespace
{
// A session is the open device, or the open directory of the driver, counted from 1.
qoripmi_session sessionOf(int file)
{
    return static_cast<qoripmi_session>(file) + 1;
}

int fileOf(qoripmi_session session)
{
    return static_cast<int>(session) - 1;
}

bool isDirectory(int file)
{
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}
}

qoripmi_session ipmiOpenLocal()
{
    int file = openDevice("");
    if (file < 0)
        file = openDriverDirectory("");
    return sessionOf(file);
}

void ipmiClose(qoripmi_session session)
{
    if (session != 0)
        close(fileOf(session));
}

int ipmiBmcGet(qoripmi_session session, void* identity)
{
    if (session == 0 || !identity)
        return 1;
    const int file = fileOf(session);
    const Deadline deadline(QORIPMI_SECONDS * 1000L);
    qoripmi_identity found;
    if (!(isDirectory(file) ? readDriver(file, deadline, found) : askDevice(file, deadline, found)))
        return 1;
    std::memcpy(identity, &found, sizeof found);
    return 0;
}

#include "companions/bmc/Device.h"

#include "companions/bmc/DeviceId.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <linux/ipmi.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VQ
{

namespace
{
constexpr const char* Nodes[] = {"/dev/ipmi0", "/dev/ipmi/0", "/dev/ipmidev/0"};
constexpr unsigned char ApplicationRequest = 0x06;
constexpr unsigned char ApplicationResponse = 0x07;
constexpr unsigned char GetDeviceId = 0x01;
constexpr int PauseWhileBusy = 50; // milliseconds

// Nothing but a character device is opened, not even to look at it: to open a pipe or a tape does something.
int openNode(const char* path)
{
    struct stat status = {};
    if (stat(path, &status) != 0 || !S_ISCHR(status.st_mode))
        return -1;
    return open(path, O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

bool send(int device, long messageId)
{
    struct ipmi_system_interface_addr bmc = {};
    bmc.addr_type = IPMI_SYSTEM_INTERFACE_ADDR_TYPE;
    bmc.channel = IPMI_BMC_CHANNEL;
    struct ipmi_req request = {};
    request.addr = reinterpret_cast<unsigned char*>(&bmc);
    request.addr_len = sizeof bmc;
    request.msgid = messageId;
    request.msg.netfn = ApplicationRequest;
    request.msg.cmd = GetDeviceId;
    return ioctl(device, IPMICTL_SEND_COMMAND, &request) == 0;
}

enum class Received
{
    Message,
    Nothing,
    Failure
};

// One message as the kernel hands it out, with room for the longest there is.
struct Message
{
    struct ipmi_addr from = {};
    unsigned char data[IPMI_MAX_MSG_LENGTH] = {};
    struct ipmi_recv header = {};

    Received receive(int device)
    {
        header = {};
        header.addr = reinterpret_cast<unsigned char*>(&from);
        header.addr_len = sizeof from;
        header.msg.data = data;
        header.msg.data_len = sizeof data;
        if (ioctl(device, IPMICTL_RECEIVE_MSG_TRUNC, &header) == 0 || errno == EMSGSIZE) // delivered, but cut
            return Received::Message;
        return errno == EAGAIN || errno == EINTR ? Received::Nothing : Received::Failure;
    }

    bool answers(long messageId) const
    {
        return header.recv_type == IPMI_RESPONSE_RECV_TYPE && header.msgid == messageId &&
               header.msg.netfn == ApplicationResponse && header.msg.cmd == GetDeviceId;
    }

    std::size_t length() const { return header.msg.data_len < sizeof data ? header.msg.data_len : sizeof data; }
};

// Waits for the device to have something. False when it never will, or the time is over.
bool waitFor(int device, const Deadline& deadline)
{
    struct pollfd waiting = {device, POLLIN, 0};
    const int ready = poll(&waiting, 1, deadline.left());
    if (ready < 0)
        return errno == EINTR;
    return ready > 0 && (waiting.revents & POLLIN) != 0;
}

Verdict askOnce(int device, long messageId, const Deadline& deadline, qoripmi_identity& identity)
{
    if (!send(device, messageId))
        return Verdict::Refused;
    Message message;
    while (deadline.left() > 0 && waitFor(device, deadline)) {
        const Received received = message.receive(device);
        if (received == Received::Failure)
            return Verdict::Refused;
        if (received == Received::Message && message.answers(messageId))
            return decodeDeviceId(message.data, message.length(), identity);
    }
    return Verdict::Refused;
}

void pause(const Deadline& deadline)
{
    const int left = deadline.left();
    poll(nullptr, 0, left < PauseWhileBusy ? left : PauseWhileBusy);
}
}

int openDevice(const char* root)
{
    char path[PATH_MAX];
    for (const char* node : Nodes) {
        const int length = std::snprintf(path, sizeof path, "%s%s", root, node);
        const int device = length > 0 && static_cast<std::size_t>(length) < sizeof path ? openNode(path) : -1;
        if (device >= 0)
            return device;
    }
    return -1;
}

bool askDevice(int device, const Deadline& deadline, qoripmi_identity& identity)
{
    // Other numbers in each call and for each question, so that an answer that comes late is nobody's.
    const long first = static_cast<long>(Deadline::now() & 0x3FFFFFFF);
    for (long messageId = first; deadline.left() > 0; ++messageId) {
        const Verdict verdict = askOnce(device, messageId, deadline, identity);
        if (verdict != Verdict::AskAgain)
            return verdict == Verdict::Identity;
        pause(deadline);
    }
    return false;
}

}

#include "tests/companions/FakeKernel.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <linux/ipmi.h>
#include <poll.h>
#include <sys/ioctl.h>

FakeKernel& FakeKernel::current()
{
    static FakeKernel kernel;
    return kernel;
}

void FakeKernel::answer(long long delay, std::vector<unsigned char> data)
{
    Message message;
    message.at = now + delay;
    message.id = asked.back();
    message.data = std::move(data);
    queue.push_back(message);
}

namespace
{
int fail(int error)
{
    errno = error;
    return -1;
}

std::string faultOf(const struct ipmi_req& request)
{
    struct ipmi_system_interface_addr address = {};
    if (request.addr_len != sizeof address)
        return "length of the address";
    std::memcpy(&address, request.addr, sizeof address);
    if (address.addr_type != 0x0C || address.channel != 0x0F || address.lun != 0)
        return "address";
    if (request.msg.netfn != 6 || request.msg.cmd != 1 || request.msg.data_len != 0)
        return "message";
    return "";
}

int send(FakeKernel& kernel, const struct ipmi_req& request)
{
    if (kernel.sendError != 0)
        return fail(kernel.sendError);
    kernel.wrongQuestion += faultOf(request);
    kernel.asked.push_back(request.msgid);
    kernel.askedAt.push_back(kernel.now);
    if (kernel.onSend)
        kernel.onSend(kernel);
    return 0;
}

std::vector<FakeKernel::Message>::iterator next(FakeKernel& kernel)
{
    return std::min_element(kernel.queue.begin(), kernel.queue.end(),
                            [](const auto& left, const auto& right) { return left.at < right.at; });
}

int receive(FakeKernel& kernel, struct ipmi_recv& into)
{
    if (kernel.receiveError != 0)
        return fail(kernel.receiveError);
    const auto message = next(kernel);
    if (message == kernel.queue.end() || message->at > kernel.now)
        return fail(EAGAIN);
    into.recv_type = message->type;
    into.msgid = message->id;
    into.msg.netfn = static_cast<unsigned char>(message->netfn);
    into.msg.cmd = static_cast<unsigned char>(message->command);
    const bool cut = message->data.size() > into.msg.data_len;
    const std::size_t length = cut ? into.msg.data_len : message->data.size();
    if (length > 0)
        std::memcpy(into.msg.data, message->data.data(), length);
    into.msg.data_len = static_cast<unsigned short>(length);
    kernel.queue.erase(message);
    return cut || kernel.cutsLongMessages ? fail(EMSGSIZE) : 0;
}
}

int fakeIoctl(int file, unsigned long request, void* argument) __asm__("__wrap_ioctl");
int fakePoll(struct pollfd* files, nfds_t count, int timeout) __asm__("__wrap_poll");
int fakeClock(clockid_t clock, struct timespec* time) __asm__("__wrap_clock_gettime");

int fakeIoctl(int file, unsigned long request, void* argument)
{
    if (file != FakeKernel::Device)
        return fail(EBADF);
    if (request == IPMICTL_SEND_COMMAND)
        return send(FakeKernel::current(), *static_cast<struct ipmi_req*>(argument));
    if (request == IPMICTL_RECEIVE_MSG_TRUNC)
        return receive(FakeKernel::current(), *static_cast<struct ipmi_recv*>(argument));
    return fail(ENOTTY);
}

int fakePoll(struct pollfd* files, nfds_t count, int timeout)
{
    FakeKernel& kernel = FakeKernel::current();
    if (count == 0) {
        kernel.now += timeout;
        return 0;
    }
    if (kernel.interruptions > 0) {
        --kernel.interruptions;
        kernel.now += std::min(timeout, 10);
        return fail(EINTR);
    }
    files->revents = kernel.pollEvents != 0 ? kernel.pollEvents : static_cast<short>(POLLIN);
    if (kernel.pollEvents != 0)
        return 1;
    if (kernel.emptyWakeUps > 0) {
        --kernel.emptyWakeUps;
        return 1;
    }
    const auto message = next(kernel);
    if (message != kernel.queue.end() && message->at <= kernel.now + timeout) {
        kernel.now = std::max(kernel.now, message->at);
        return 1;
    }
    kernel.now += timeout;
    files->revents = 0;
    return 0;
}

int fakeClock(clockid_t, struct timespec* time)
{
    const long long now = FakeKernel::current().now;
    time->tv_sec = static_cast<time_t>(now / 1000);
    time->tv_nsec = static_cast<long>(now % 1000 * 1000000);
    return 0;
}

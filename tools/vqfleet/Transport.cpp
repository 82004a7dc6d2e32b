#include "tools/vqfleet/Transport.h"

#include "tools/program/Errors.h"
#include "tools/vqfleet/Progress.h"
#include "tools/vqfleet/Verdict.h"

#include <algorithm>
#include <chrono>
#include <curl/curl.h>
#include <memory>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t MaxHeaders = 256u << 10; // bytes of one answer
constexpr const char* CimErrorHeader = "CIMError:";

using Clock = std::chrono::steady_clock;
using Easy = std::unique_ptr<CURL, void (*)(CURL*)>;
using Multi = std::unique_ptr<CURLM, CURLMcode (*)(CURLM*)>;
using List = std::unique_ptr<curl_slist, void (*)(curl_slist*)>;

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

// One server that is being asked. Does not move: the network library holds its address.
class Call
{
public:
    Call(const Server& server, Conversation& conversation, const Access& access, const Pace& pace)
        : _server(server), _conversation(conversation), _access(access), _pace(pace),
          _deadline(Clock::now() + std::chrono::seconds(pace.timeout)), _easy(curl_easy_init(), curl_easy_cleanup),
          _headers(nullptr, curl_slist_free_all)
    {
        if (!_easy)
            throw LoadError("libcurl gives no connection");
        prepare();
    }

    CURL* handle() const { return _easy.get(); }

    // False where there is nothing more to ask.
    bool askNext()
    {
        const std::optional<Question> question = _conversation.next();
        if (!question)
            return false;
        _ending = {};
        _body.clear();
        _headerSize = 0;
        _question = *question;
        _headers.reset();
        for (const std::string& line :
             {std::string("Content-Type: application/xml; charset=utf-8"), std::string("CIMOperation: MethodCall"),
              "CIMMethod: " + _question.method, "CIMObject: " + _question.object, std::string("Expect:")})
            _headers.reset(curl_slist_append(_headers.release(), line.c_str()));
        set(CURLOPT_HTTPHEADER, _headers.get());
        // Over a connection that was used before, what the server did not seem to get is sent again.
        set(CURLOPT_FRESH_CONNECT, _question.once ? 1L : 0L);
        set(CURLOPT_POSTFIELDS, _question.body.c_str());
        set(CURLOPT_POSTFIELDSIZE, static_cast<long>(_question.body.size()));
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(_deadline - Clock::now()).count();
        set(CURLOPT_TIMEOUT_MS, std::max(1L, static_cast<long>(left)));
        return true;
    }

    // False where the conversation is over with this.
    bool take(CURLcode code)
    {
        curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &_ending.status);
        curl_easy_getinfo(handle(), CURLINFO_OS_ERRNO, &_ending.systemError);
        _ending.code = code;
        _ending.detail = _detail;
        if (code != CURLE_OK || _ending.status != 200) {
            _conversation.fail(verdictOn(_ending, _server, _access, _pace));
            return false;
        }
        try {
            _conversation.take(_body);
        } catch (const NoAnswer& error) {
            _conversation.fail({"NO_CIM_ANSWER", _server.address + " sent what is no answer: " + error.what()});
            return false;
        }
        return true;
    }

private:
    template <class Setting> void set(CURLoption option, Setting value)
    {
        if (curl_easy_setopt(handle(), option, value) != CURLE_OK)
            throw LoadError("libcurl does not know the setting " + std::to_string(option));
    }

    void prepare()
    {
        set(CURLOPT_URL, address().c_str());
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        set(CURLOPT_FOLLOWLOCATION, 0L);
        set(CURLOPT_PROXY, ""); // a password must not go through a machine that nobody named
        set(CURLOPT_NOSIGNAL, 1L);
        // An answer with an error's status has no length, and its end never comes.
        set(CURLOPT_FAILONERROR, 1L);
        set(CURLOPT_ERRORBUFFER, _detail);
        set(CURLOPT_PRIVATE, this);
        set(CURLOPT_WRITEFUNCTION, &Call::takeBody);
        set(CURLOPT_WRITEDATA, this);
        set(CURLOPT_HEADERFUNCTION, &Call::takeHeader);
        set(CURLOPT_HEADERDATA, this);
        prepareUser();
        if (_server.isTls())
            prepareTls();
    }

    // With the user whose password is in the netrc file: one that is set apart keeps libcurl from looking there.
    std::string address() const
    {
        std::string whole = _server.address + "/cimom";
        if (!_access.netrc || _server.user.empty())
            return whole;
        const std::size_t host = whole.find("//") + 2;
        const std::unique_ptr<char, void (*)(void*)> user(
            curl_easy_escape(handle(), _server.user.c_str(), static_cast<int>(_server.user.size())), curl_free);
        return whole.substr(0, host) + user.get() + "@" + whole.substr(host);
    }

    void prepareUser()
    {
        if (_access.netrc) {
            set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_OPTIONAL));
            if (!_access.netrcFile.empty())
                set(CURLOPT_NETRC_FILE, _access.netrcFile.c_str());
        }
        if (!_access.netrc && _server.user.empty())
            return;
        set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC));
        if (!_access.netrc)
            set(CURLOPT_USERNAME, _server.user.c_str());
        const auto password = _access.passwords.find(_server.user);
        if (password != _access.passwords.end())
            set(CURLOPT_PASSWORD, password->second.c_str());
    }

    void prepareTls()
    {
        const std::string& pin = _server.pin.empty() ? _access.pin : _server.pin;
        if (!pin.empty())
            set(CURLOPT_PINNEDPUBLICKEY, pin.c_str());
        // Who has the key that is pinned is the server, whoever signed its certificate.
        if (_access.insecure || !pin.empty()) {
            set(CURLOPT_SSL_VERIFYPEER, 0L);
            set(CURLOPT_SSL_VERIFYHOST, 0L);
        }
        if (!_access.caFile.empty())
            set(CURLOPT_CAINFO, _access.caFile.c_str());
    }

    static std::size_t takeBody(char* data, std::size_t, std::size_t size, void* self)
    {
        Call& call = *static_cast<Call*>(self);
        call._received += size;
        call._ending.tooLarge = call._received > MaxAnswerSize;
        if (call._ending.tooLarge)
            return 0;
        call._body.append(data, size);
        return size;
    }

    static std::size_t takeHeader(char* data, std::size_t, std::size_t size, void* self)
    {
        Call& call = *static_cast<Call*>(self);
        call._headerSize += size;
        call._ending.tooLarge = call._headerSize > MaxHeaders;
        if (call._ending.tooLarge)
            return 0;
        const std::string line(data, size);
        const std::size_t length = std::char_traits<char>::length(CimErrorHeader);
        if (strncasecmp(line.c_str(), CimErrorHeader, length) == 0)
            call._ending.cimError = trimmed(line.substr(length)).substr(0, 200);
        return size;
    }

    const Server& _server;
    Conversation& _conversation;
    const Access& _access;
    const Pace& _pace;
    Clock::time_point _deadline;
    Easy _easy;
    List _headers;
    Question _question;
    Ending _ending;
    std::string _body;
    std::size_t _received = 0; // bytes of all bodies
    std::size_t _headerSize = 0;
    char _detail[CURL_ERROR_SIZE] = "";
};

// The calls that are under way, by their handles.
class Calls
{
public:
    explicit Calls(const Pace& pace) : _multi(curl_multi_init(), curl_multi_cleanup)
    {
        if (!_multi)
            throw LoadError("libcurl gives no connections");
        curl_multi_setopt(_multi.get(), CURLMOPT_MAXCONNECTS, static_cast<long>(pace.jobs));
    }

    ~Calls()
    {
        for (const auto& [handle, call] : _calls)
            curl_multi_remove_handle(_multi.get(), handle);
    }

    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    std::size_t count() const { return _calls.size(); }

    // False where there was nothing to ask.
    bool start(std::unique_ptr<Call> call)
    {
        CURL* handle = call->handle();
        if (!call->askNext())
            return false;
        curl_multi_add_handle(_multi.get(), handle);
        _calls.emplace(handle, std::move(call));
        return true;
    }

    // Waits until something happens; the number of conversations that ended with it.
    std::size_t advance()
    {
        int running = 0;
        if (curl_multi_perform(_multi.get(), &running) != CURLM_OK)
            throw LoadError("libcurl fails");
        std::size_t ended = 0;
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(_multi.get(), &left))
            if (message->msg == CURLMSG_DONE)
                ended += goOn(message->easy_handle, message->data.result) ? 0 : 1;
        if (ended == 0)
            curl_multi_poll(_multi.get(), nullptr, 0, 1000, nullptr);
        return ended;
    }

private:
    bool goOn(CURL* handle, CURLcode result)
    {
        curl_multi_remove_handle(_multi.get(), handle);
        const auto found = _calls.find(handle);
        if (found->second->take(result) && found->second->askNext()) {
            curl_multi_add_handle(_multi.get(), handle);
            return true;
        }
        _calls.erase(found);
        return false;
    }

    Multi _multi;
    std::map<CURL*, std::unique_ptr<Call>> _calls;
};
}

void converse(const std::vector<Server>& servers, const std::vector<Conversation*>& conversations, const Access& access,
              const Pace& pace)
{
    curl_global_init(CURL_GLOBAL_DEFAULT); // here, since it takes its time: what was saved is shown without
    Progress progress(servers.size());
    Calls calls(pace);
    for (std::size_t next = 0; next < servers.size() || calls.count() > 0;) {
        while (next < servers.size() && calls.count() < pace.jobs) {
            if (!calls.start(std::make_unique<Call>(servers[next], *conversations[next], access, pace)))
                progress.step();
            ++next;
        }
        for (std::size_t done = calls.advance(); done > 0; --done)
            progress.step();
    }
}

}

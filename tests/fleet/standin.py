"""CIM servers of the tests' own on loopback: they replay answers recorded from a real one, or misbehave.

How one behaves is the last part of the namespace that it is asked for: root/endless, root/cut ...
"""
import asyncio
import os
import re
import threading
import urllib.parse

ANSWERS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "answers")
PASSWORD = "c3VzYW46c2VjcmV0"  # susan:secret
LIMIT = 200 << 20  # bytes of an endless answer, which the asker ends long before


def recorded(class_name):
    with open(os.path.join(ANSWERS, class_name + ".xml"), "rb") as file:
        return file.read().replace(b"web1", os.uname().nodename.encode())  # the name that the asker has


def answer_to(method, class_name):
    try:
        body = recorded(class_name)
    except OSError:
        return wrapped(method, b'<ERROR CODE="5" DESCRIPTION="CIM_ERR_INVALID_CLASS: there is none"/>')
    if method == "EnumerateInstanceNames":
        names = re.findall(rb"<INSTANCENAME.*?</INSTANCENAME>", body, re.S)
        return wrapped(method, b"<IRETURNVALUE>" + b"".join(names) + b"</IRETURNVALUE>")
    return body


def returned(method, value):
    """The answer to the call of a method that is no operation of CIM itself."""
    content = b"" if value is None else (b'<RETURNVALUE PARAMTYPE="uint32"><VALUE>' + str(value).encode()
                                         + b"</VALUE></RETURNVALUE>")
    return wrapped(method, content).replace(b"IMETHODRESPONSE", b"METHODRESPONSE")


def wrapped(method, content):
    return (b'<?xml version="1.0"?><CIM><MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLERSP><IMETHODRESPONSE NAME="'
            + method.encode() + b'">' + content + b"</IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>")


def response(body, status="200 OK", headers=(), length=None):
    lines = ["HTTP/1.1 " + status, "Content-Type: application/xml; charset=utf-8", *headers]
    if length != 0:
        lines.append(f"Content-Length: {len(body) if length is None else length}")
    return "\r\n".join(lines).encode() + b"\r\n\r\n" + body


class StandIns:
    """Servers on ports of their own, in a thread of their own."""

    def __init__(self, count=1, tls=None):
        self.ports, self.connections, self.requests = [], 0, 0
        self.calls = []  # of methods: the port, the method, what of
        self._count, self._tls = count, tls
        self._loop = asyncio.new_event_loop()
        self._thread = threading.Thread(target=self._run, daemon=True)
        started = threading.Event()
        self._loop.call_soon(lambda: self._loop.create_task(self._start(started)))
        self._thread.start()
        started.wait(10)

    def _run(self):
        asyncio.set_event_loop(self._loop)
        self._loop.run_forever()

    async def _start(self, started):
        for _ in range(self._count):
            server = await asyncio.start_server(self._serve, "127.0.0.1", 0, ssl=self._tls, backlog=50)
            self.ports.append(server.sockets[0].getsockname()[1])
        started.set()

    def close(self):
        self._loop.call_soon_threadsafe(lambda: [task.cancel() for task in asyncio.all_tasks(self._loop)])
        self._loop.call_soon_threadsafe(self._loop.call_later, 0.1, self._loop.stop)
        self._thread.join(10)

    def url(self, behaviour="cimv2", index=0, user=""):
        scheme = "https" if self._tls else "http"
        return f"{scheme}://{user}127.0.0.1:{self.ports[index]}/root/{behaviour}"

    async def _serve(self, reader, writer):
        self.connections += 1
        try:
            while await self._answer(reader, writer):
                pass
        except (ConnectionError, asyncio.CancelledError, asyncio.IncompleteReadError, asyncio.LimitOverrunError):
            pass
        writer.close()

    async def _answer(self, reader, writer):
        start = await reader.readexactly(5)
        if start != b"POST ":
            return False
        head = (await reader.readuntil(b"\r\n\r\n")).decode("latin-1")
        headers = {name.lower(): value.strip() for name, _, value in
                   (line.partition(":") for line in head.split("\r\n")[1:])}
        body = await reader.readexactly(int(headers["content-length"]))
        self.requests += 1
        name_space, _, called = urllib.parse.unquote(headers["cimobject"]).partition(":")
        method = headers["cimmethod"]
        asked = re.search(rb'CLASSNAME NAME="(\w+)"', body)
        if called:
            self.calls.append((writer.get_extra_info("sockname")[1], method, called))
            good = returned(method, 0)
        else:
            good = answer_to(method, asked.group(1).decode() if asked else "none")
        behaviour = getattr(self, "_" + name_space.split("/")[-1].replace("-", "_"), None)
        if behaviour is None or (not called and "call-" in name_space):
            writer.write(response(good))
            await writer.drain()
            return True
        await behaviour(writer, method, good, headers)
        await writer.drain()
        return False

    async def _call_refused(self, writer, method, good, headers):
        writer.write(response(good.replace(b"<VALUE>0<", b"<VALUE>4294967295<")))

    async def _call_denied(self, writer, method, good, headers):
        denied = wrapped(method, b'<ERROR CODE="2" DESCRIPTION="not you"/>')
        writer.write(response(denied.replace(b"IMETHODRESPONSE", b"METHODRESPONSE")))

    async def _call_unknown(self, writer, method, good, headers):
        writer.write(response(returned(method, None)))

    async def _call_lost(self, writer, method, good, headers):
        pass

    async def _tenth(self, writer, method, good, headers):
        await asyncio.sleep(0.1)
        writer.write(response(good))

    async def _hang(self, writer, method, good, headers):
        await asyncio.sleep(30)

    async def _password(self, writer, method, good, headers):
        if headers.get("authorization") == "Basic " + PASSWORD:
            writer.write(response(good))
        else:
            writer.write(response(b"", "401 Unauthorized", ['WWW-Authenticate: Basic realm="x"'], 0))
            await writer.drain()
            await asyncio.sleep(30)  # as a real one, it keeps the connection open

    async def _mismatch(self, writer, method, good, headers):
        writer.write(response(b"", "400 Bad Request", ["CIMError: header-mismatch"], 0))
        await writer.drain()
        await asyncio.sleep(30)

    async def _namespace(self, writer, method, good, headers):
        writer.write(response(wrapped(method, b'<ERROR CODE="3" DESCRIPTION="CIM_ERR_INVALID_NAMESPACE: none"/>')))

    async def _redirect(self, writer, method, good, headers):
        writer.write(response(b"", "302 Found", ["Location: http://127.0.0.1:1/"]))

    async def _page(self, writer, method, good, headers):
        writer.write(response(b"<html><body>It works!</body></html>"))

    async def _missing(self, writer, method, good, headers):
        writer.write(response(b"nothing here", "404 Not Found"))

    async def _ssh(self, writer, method, good, headers):
        writer.write(b"SSH-2.0-OpenSSH_9.2\r\n")

    async def _cut(self, writer, method, good, headers):
        writer.write(response(good[:500], length=len(good)))

    async def _half(self, writer, method, good, headers):
        writer.write(response(good[:500]))

    async def _silent(self, writer, method, good, headers):
        pass

    async def _endless(self, writer, method, good, headers):
        writer.write(response(good[:200], headers=["Connection: close"], length=0))
        for _ in range(LIMIT >> 20):
            writer.write(b"x" * (1 << 20))
            await writer.drain()

    async def _headers(self, writer, method, good, headers):
        writer.write(b"HTTP/1.1 200 OK\r\n")
        for i in range(1 << 16):
            writer.write(b"X-%d: " % i + b"x" * 1000 + b"\r\n")
            await writer.drain()

    async def _deep(self, writer, method, good, headers):
        writer.write(response(b"<a>" * (1 << 20)))

    async def _bomb(self, writer, method, good, headers):
        entities = b'<!ENTITY a0 "lol">' + b"".join(
            b'<!ENTITY a%d "%s">' % (i, b"&a%d;" % (i - 1) * 10) for i in range(1, 10))
        writer.write(response(b"<!DOCTYPE CIM [" + entities + b"]>" +
                              good.split(b"?>", 1)[1].replace(b"QORTAL_", b"&a9;", 1)))

    async def _attribute(self, writer, method, good, headers):
        writer.write(response(wrapped(method, b'<ERROR CODE="1" DESCRIPTION="' + b"x" * (1 << 20) + b'"/>')))

    async def _short(self, writer, method, good, headers):
        writer.write(response(good, length=100))

    async def _negative(self, writer, method, good, headers):
        writer.write(response(good, length=-5))

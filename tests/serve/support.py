"""What the tests of a served home screen share: the program, a WebSocket, and a browser by its driver."""
import base64
import json
import os
import socket
import struct
import subprocess
import sys
import time
import urllib.error
import urllib.request
from urllib.parse import urlsplit

PATIENCE = 60  # seconds; machines are slow under sanitizers


def eventually(condition, what):
    """Waits until the condition holds, and gives back what it answered."""
    end = time.monotonic() + PATIENCE
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"{what} did not come about in {PATIENCE} s")
        time.sleep(0.02)


class Served:
    """The program with a home screen that is served."""

    def __init__(self, program, *options):
        self._start([program, "--serve", *options])

    def _start(self, command, **where):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, **where)
        # A script that builds before says so on lines of its own.
        self.address = next((line.decode().strip() for line in self.process.stdout if line.startswith(b"http")), "")
        if not self.address:
            complaint = self.process.communicate()[1].decode()
            raise AssertionError(complaint)
        parts = urlsplit(self.address)
        self.host, self.port, self.path = parts.hostname, parts.port, parts.path

    def __enter__(self):
        return self

    def __exit__(self, fault, *_):
        # Whoever looks into a failed test wants to know that, too.
        status = self.process.poll()
        if status or (fault and status == 0):
            print(f"the program had ended with {status}: {self.process.stderr.read().decode()}", file=sys.stderr)
        self.process.terminate()
        self.process.wait(PATIENCE)
        self.process.stdout.close()
        self.process.stderr.close()

    def get(self, path=None, **headers):
        """Status, headers and body of a GET."""
        request = urllib.request.Request(f"http://{self.host}:{self.port}{self.path if path is None else path}",
                                         headers=headers)
        try:
            with urllib.request.urlopen(request, timeout=PATIENCE) as answer:
                return answer.status, answer.headers, answer.read()
        except urllib.error.HTTPError as error:
            with error:
                return error.code, error.headers, error.read()

    def socket(self, **options):
        try:
            return WebSocket(self, **options)
        except ConnectionRefusedError:
            # Whoever looks into a failed test wants to know what became of the program.
            status = self.process.wait(PATIENCE)
            raise AssertionError(f"ended with {status}: {self.process.stderr.read().decode()}") from None

    def home_processes(self):
        """The processes with home screens."""
        with open(f"/proc/{self.process.pid}/task/{self.process.pid}/children", encoding="ascii") as children:
            return [int(child) for child in children.read().split()]


class Refused(Exception):
    """A WebSocket that was not let in, or was ended: with the status of the handshake, or the reason."""


class WebSocket:
    """As much of RFC 6455 as a page uses, and as much of misusing it as tests do."""

    def __init__(self, served, path=None, host=None, origin=None, protocol="tilo"):
        self.socket = socket.create_connection((served.host, served.port), timeout=PATIENCE)
        self.rest = b""
        host = host or f"{served.host}:{served.port}"
        lines = [f"GET {served.path + 'socket' if path is None else path} HTTP/1.1", f"Host: {host}",
                 "Upgrade: websocket", "Connection: Upgrade", "Sec-WebSocket-Version: 13",
                 "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==", f"Sec-WebSocket-Protocol: {protocol}"]
        if origin:
            lines.append(f"Origin: {origin}")
        self.socket.sendall(("\r\n".join(lines) + "\r\n\r\n").encode())
        head = self._until(b"\r\n\r\n")
        status = head.split(b" ", 2)[1:2]
        if status != [b"101"]:
            self.socket.close()
            raise Refused(status[0].decode() if status else "closed")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def _until(self, mark):
        while mark not in self.rest:
            more = self.socket.recv(65536)
            if not more:
                return b""
            self.rest += more
        head, self.rest = self.rest.split(mark, 1)
        return head

    def _read(self, count):
        while len(self.rest) < count:
            more = self.socket.recv(1 << 20)
            if not more:
                raise Refused("closed")
            self.rest += more
        piece, self.rest = self.rest[:count], self.rest[count:]
        return piece

    def send_bytes(self, contents, opcode=1):
        mask = os.urandom(4)
        length = len(contents)
        head = bytes([0x80 | opcode])
        if length < 126:
            head += bytes([0x80 | length])
        elif length < 65536:
            head += bytes([0x80 | 126]) + struct.pack(">H", length)
        else:
            head += bytes([0x80 | 127]) + struct.pack(">Q", length)
        masks = (mask * (length // 4 + 1))[:length]
        masked = (int.from_bytes(contents, "big") ^ int.from_bytes(masks, "big")).to_bytes(length, "big")
        self.socket.sendall(head + mask + masked)

    def send(self, **message):
        self.send_bytes(json.dumps(message).encode())

    def receive(self):
        """The next message: text as JSON, a frame as bytes."""
        while True:
            first, second = self._read(2)
            length = second & 127
            if length == 126:
                (length,) = struct.unpack(">H", self._read(2))
            elif length == 127:
                (length,) = struct.unpack(">Q", self._read(8))
            contents = self._read(length)
            opcode = first & 15
            if opcode == 1:
                return json.loads(contents)
            if opcode == 2:
                self.send(type="drawn", frame=struct.unpack("<I", contents[:4])[0])
                return contents
            if opcode == 8:
                raise Refused(contents[2:].decode() or "closed")

    def until(self, kind):
        """The next message of that type; one that is refused meanwhile was waited for in vain."""
        while True:
            message = self.receive()
            if not isinstance(message, dict):
                continue
            if message["type"] == kind:
                return message
            if message["type"] == "refused" and message.get("id"):
                raise Refused(message["reason"])

    def frame(self):
        """The next frame."""
        while True:
            message = self.receive()
            if isinstance(message, bytes):
                return message

    def ask(self, kind, **message):
        self.send(type=kind, id=1, **message)
        return self.until({"report": "report", "step": "done"}.get(kind, "answer"))

    def answer(self, kind, **message):
        """What the home screen answers to a message of the program's."""
        answer = self.ask(kind, **message)
        if "error" in answer:
            raise Refused(answer["error"])
        return answer["answer"]

    def step(self, line):
        answer = self.ask("step", step=line)
        if "error" in answer:
            raise Refused(answer["error"])

    def report(self):
        return self.ask("report")["report"]


class Browser:
    """Chromium without a window."""

    def __init__(self, size=(1280, 1000)):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                       text=True)
        for line in self.driver.stdout:
            if "started successfully on port" in line:
                port = int(line.strip().rstrip(".").rsplit(" ", 1)[1])
                self.base = f"http://127.0.0.1:{port}"
                break
        arguments = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     f"--window-size={size[0]},{size[1]}"]
        session = self._call("POST", "/session",
                             {"capabilities": {"alwaysMatch": {"goog:chromeOptions": {"args": arguments}}}})
        self.base += f"/session/{session['sessionId']}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._call("DELETE", "")
        self.driver.terminate()
        self.driver.wait(PATIENCE)
        self.driver.stdout.close()

    def _call(self, method, path, body=None):
        request = urllib.request.Request(self.base + path, method=method,
                                         data=None if body is None else json.dumps(body).encode())
        try:
            with urllib.request.urlopen(request, timeout=PATIENCE) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            with error:
                raise AssertionError(json.load(error)["value"]["message"]) from None

    def open(self, address):
        self._call("POST", "/url", {"url": address})

    def run(self, script, *arguments):
        """What the script returns or its promise comes to."""
        wrapped = ("const end = arguments[arguments.length - 1], args = [...arguments].slice(0, -1);"
                   "(async () => {" + script + "})().then((value) => end({value}), (e) => end({error: e.message}));")
        answer = self._call("POST", "/execute/async", {"script": wrapped, "args": list(arguments)})
        if "error" in answer:
            raise AssertionError(answer["error"])
        return answer.get("value")

    def command(self, name, **parameters):
        """One of the browser's own, of its protocol for developers."""
        return self._call("POST", "/goog/cdp/execute", {"cmd": name, "params": parameters})

    def screenshot(self, file):
        with open(file, "wb") as out:
            out.write(base64.b64decode(self._call("GET", "/screenshot")))

    def act(self, *actions, kind="pointer", **parameters):
        self.perform({"type": kind, "id": kind, **({"parameters": parameters} if parameters else {}),
                      "actions": list(actions)})

    def perform(self, *sources):
        """What several pointers and keys do, side by side."""
        self._call("POST", "/actions", {"actions": sources})

    def new_tab(self):
        handle = self._call("POST", "/window/new", {"type": "tab"})["handle"]
        self.show_tab(handle)
        return handle

    def show_tab(self, handle):
        self._call("POST", "/window", {"handle": handle})

    def this_tab(self):
        return self._call("GET", "/window")

    def close_tab(self):
        return self._call("DELETE", "/window")

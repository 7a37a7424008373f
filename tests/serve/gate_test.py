#!/usr/bin/env python3
"""Who comes in to a served home screen, and who does not; and where it listens.

    gate_test.py PROGRAM LIBRARY_THAT_ENDS_IT
"""
import socket
import subprocess
import sys
import unittest

from support import PATIENCE, Refused, Served

PROGRAM = sys.argv[1]


def refused(*options):
    """Status and complaint of a run that does not come to serve."""
    done = subprocess.run([PROGRAM, *options], capture_output=True, timeout=PATIENCE, text=True, check=False)
    return done.returncode, done.stderr.strip()


class Options(unittest.TestCase):
    def test_serve_refuses_what_is_no_port(self):
        self.assertEqual(refused("--serve=x"), (2, "tilo-sim: --serve: 'x' is no port, 1 to 65535"))
        self.assertEqual(refused("--serve", "65536"), (2, "tilo-sim: --serve: '65536' is no port, 1 to 65535"))

    def test_serve_refuses_a_port_that_is_taken(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            port = taken.getsockname()[1]
            self.assertEqual(refused("--serve", str(port)), (2, f"tilo-sim: --serve: cannot listen at 127.0.0.1:{port}"))

    def test_listen_refuses_what_is_no_address(self):
        self.assertEqual(refused("--serve", "--listen", "here"), (2, "tilo-sim: --listen: 'here' is no IPv4 address"))

    def test_what_is_for_serve_is_refused_without_it(self):
        self.assertEqual(refused("--listen", "127.0.0.1"), (2, "tilo-sim: --listen is for --serve"))
        self.assertEqual(refused("--watch"), (2, "tilo-sim: --watch is for --serve"))

    def test_serve_goes_without_a_script(self):
        self.assertEqual(refused("--serve", "--report", "-"),
                         (2, "tilo-sim: --serve goes without --script, --snapshot and --report"))


class Gate(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.served = cls.enterClassContext(Served(PROGRAM))

    def test_the_page_comes_with_a_policy_that_lets_nothing_foreign_in(self):
        status, headers, body = self.served.get()
        self.assertEqual(status, 200)
        self.assertIn(b"<title>Tilo", body)
        self.assertIn("default-src 'none'", headers["Content-Security-Policy"])
        self.assertEqual(headers["Referrer-Policy"], "no-referrer")

    def test_without_the_token_everything_is_forbidden(self):
        for path in ("/", "/page.js", "/" + "0" * 32 + "/", self.served.path[:-1], self.served.path[:-2] + "/"):
            self.assertEqual(self.served.get(path)[0], 403, path)

    def test_no_path_leads_to_other_files(self):
        for name in ("page.py", "../page.js", "%2e%2e/page.js", "/etc/passwd", "socket/"):
            self.assertIn(self.served.get(self.served.path + name)[0], (403, 404), name)

    def test_a_foreign_host_is_forbidden(self):
        for host in ("evil.example", f"evil.example:{self.served.port}", "127.0.0.1", f"127.0.0.1:{self.served.port}.x"):
            self.assertEqual(self.served.get(Host=host)[0], 403, host)
        self.assertEqual(self.served.get(Host=f"localhost:{self.served.port}")[0], 200)

    def test_a_foreign_origin_is_forbidden(self):
        for origin in ("http://evil.example", "null", f"https://127.0.0.1:{self.served.port}"):
            with self.assertRaises(Refused, msg=origin):
                self.served.socket(origin=origin)
        self.served.socket(origin=f"http://127.0.0.1:{self.served.port}").socket.close()

    def test_a_socket_without_the_token_is_forbidden(self):
        for path in ("/socket", "/" + "0" * 32 + "/socket", self.served.path + "page.js"):
            with self.assertRaises(Refused, msg=path):
                self.served.socket(path=path)

    def test_it_listens_on_this_machine_alone(self):
        with open("/proc/net/tcp", encoding="ascii") as table:
            listening = [line.split()[1] for line in table if line.split()[3] == "0A"]
        self.assertIn(f"0100007F:{self.served.port:04X}", listening)
        self.assertNotIn(f"00000000:{self.served.port:04X}", listening)

    def test_it_listens_where_it_is_told_to(self):
        with Served(PROGRAM, "--listen", "127.0.0.2") as served:
            self.assertEqual(served.host, "127.0.0.2")
            self.assertEqual(served.get()[0], 200)
            self.assertEqual(served.get(Host=f"evil.example:{served.port}")[0], 403)
            with self.assertRaises(ConnectionRefusedError):
                socket.create_connection(("127.0.0.1", served.port))

    def test_everywhere_it_is_known_by_numbers_alone(self):
        with Served(PROGRAM, "--listen", "0.0.0.0") as served:
            for host, status in (("192.0.2.7", 200), ("127.0.0.1", 200), ("evil.example", 403), ("1.2.3.4.evil.example", 403)):
                self.assertEqual(served.get(Host=f"{host}:{served.port}")[0], status, host)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])

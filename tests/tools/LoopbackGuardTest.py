import os
import subprocess
import sys
import unittest

BIND = """
import socket, sys
family, kind, address, v6only = sys.argv[1:]
opened = socket.socket(getattr(socket, family), getattr(socket, kind))
if family == "AF_INET6":
    opened.setsockopt(socket.IPPROTO_IPV6, socket.IPV6_V6ONLY, int(v6only))
opened.bind((address, 0))
print(opened.getsockname()[0])
"""


class LoopbackGuardTest(unittest.TestCase):
    def bound(self, family, address, kind="SOCK_STREAM", v6only=0):
        """The address that a guarded program really has when it asks for this one."""
        done = subprocess.run([sys.executable, "-c", BIND, family, kind, address, str(v6only)], text=True,
                              capture_output=True, env=dict(os.environ, LD_PRELOAD=os.environ["LOOPBACK_GUARD"]))
        if family == "AF_INET6" and ("not supported" in done.stderr or "Cannot assign" in done.stderr):
            self.skipTest("this machine has no IPv6")
        self.assertEqual(("", 0), (done.stderr, done.returncode))
        return done.stdout.strip()

    def test_all_interfaces_become_loopback(self):
        self.assertEqual("127.0.0.1", self.bound("AF_INET", "0.0.0.0"))

    def test_all_interfaces_of_both_families_become_the_mapped_loopback(self):
        self.assertEqual("::ffff:127.0.0.1", self.bound("AF_INET6", "::"))

    def test_all_interfaces_of_ipv6_alone_become_its_loopback(self):
        self.assertEqual("::1", self.bound("AF_INET6", "::", v6only=1))

    def test_a_chosen_address_stays(self):
        self.assertEqual("127.0.0.2", self.bound("AF_INET", "127.0.0.2"))

    def test_datagrams_stay_as_they_are(self):
        self.assertEqual("0.0.0.0", self.bound("AF_INET", "0.0.0.0", kind="SOCK_DGRAM"))


if __name__ == "__main__":
    unittest.main()

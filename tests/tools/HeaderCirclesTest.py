import os
import subprocess
import sys
import tempfile
import unittest

CHECKER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tools/check_header_circles.py")


class HeaderCirclesTest(unittest.TestCase):
    def check(self, headers):
        """Runs the checker over headers given as {path: text}; returns its exit code and its message."""
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, path) for path in headers]
            for path, text in zip(paths, headers.values()):
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as header:
                    header.write(text)
            done = subprocess.run([sys.executable, "-B", CHECKER, *paths], capture_output=True, text=True)
        return done.returncode, done.stderr.strip()

    def test_a_header_used_along_two_ways_is_no_circle(self):
        self.assertEqual((0, ""), self.check({
            "top.h": '#include "left.h"\n#include "right.h"\n',
            "left.h": '#include "base.h"\n',
            "right.h": '#include "base.h"\n#include <top.h>\n',
            "base.h": "#include <QString>\n"}))

    def test_a_circle_across_folders_is_printed(self):
        status, message = self.check({
            "a/one.h": '#include "two.h"\n',
            "b/two.h": '  #  include "c/three.h"\n',
            "c/three.h": '#include "one.h"\n'})
        self.assertEqual(1, status)
        self.assertEqual("headers include one another: one.h -> two.h -> three.h -> one.h", message)

    def test_a_circle_behind_a_straight_way_is_found(self):
        status, message = self.check({
            "a.h": '#include "b.h"\n',
            "b.h": '#include "c.h"\n',
            "c.h": '#include "b.h"\n'})
        self.assertEqual((1, "headers include one another: b.h -> c.h -> b.h"), (status, message))

    def test_a_header_that_includes_itself_is_a_circle(self):
        self.assertEqual(1, self.check({"a.h": '#include "a.h"\n'})[0])

    def test_two_headers_of_one_name_fail(self):
        status, message = self.check({"a/one.h": "", "b/one.h": ""})
        self.assertEqual(1, status)
        self.assertIn("two headers are named one.h", message)


if __name__ == "__main__":
    unittest.main()

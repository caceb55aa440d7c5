"""./run, ./test and what they share, in a copy of their own with stand-ins for every tool that they call."""
import os
import shutil
import socket
import subprocess
import tempfile
import unittest

ROOT = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../.."))

# Each stand-in notes its call; what it answers is read from files that a test may write.
RECORDER = """#!/bin/bash
echo "$(basename "$0") $*" >>"$STATE/calls"
answer=$STATE/$(basename "$0")
[[ ! -e $answer.out ]] || cat "$answer.out"
[[ ! -e $answer.status ]] || exit "$(cat "$answer.status")"
"""
SUDO = RECORDER + """
while [[ $1 == -* ]]; do shift; done
exec "$@"
"""
CONSOLE = """#!/bin/bash
printf 'argument:%s\\n' "$@"
echo "platform:${QT_QPA_PLATFORM-}"
echo "preload:${LD_PRELOAD-}"
echo "folder:$PWD"
[[ ${1-} == --help ]] || exit 7
"""


def write(path, text, mode=0o644):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, mode)


class ScriptsTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = os.path.realpath(holder.name)
        self.tree = self.folder + "/tree"
        for name in ("run", "test", "tools/bootstrap.sh", "CMakePresets.json"):
            os.makedirs(os.path.dirname(f"{self.tree}/{name}"), exist_ok=True)
            shutil.copy(f"{ROOT}/{name}", f"{self.tree}/{name}")
        for name in ("apt-get", "dpkg-query", "id", "cmake", "ctest"):
            write(f"{self.folder}/bin/{name}", RECORDER, 0o755)
        os.mkdir(self.folder + "/state")
        self.environment = {"PATH": self.folder + "/bin:/usr/bin:/bin", "STATE": self.folder + "/state",
                            "DISPLAY": ":0"}
        self.answer("id", "0\n")
        self.pretend_installed(self.packages())
        write(self.tree + "/build/release/bin/console", CONSOLE, 0o755)
        write(self.tree + "/build/release/lib/libloopback-guard.so", "")

    def answer(self, tool, text="", status=0):
        write(f"{self.folder}/state/{tool}.out", text)
        write(f"{self.folder}/state/{tool}.status", str(status))

    def packages(self):
        return self.bash('printf "%s\\n" "${BUILD_PACKAGES[@]}"', PATH="/usr/bin:/bin").stdout.split()

    def pretend_installed(self, names):
        self.answer("dpkg-query", "".join(f"{name} ii \n" for name in names))

    def start(self, *command, **environment):
        return subprocess.run(command, cwd=self.folder, text=True, stdin=subprocess.DEVNULL, capture_output=True,
                              env=dict(self.environment, **environment))

    def bash(self, text, **environment):
        return self.start("bash", "-c", f"set -euo pipefail; source {self.tree}/tools/bootstrap.sh; {text}",
                          **environment)

    def run_console(self, *arguments, **environment):
        return self.start(self.tree + "/run", *arguments, **environment)

    def calls(self, tool=""):
        path = self.folder + "/state/calls"
        if not os.path.exists(path):
            return []
        with open(path, encoding="utf-8") as file:
            return [line for line in file.read().splitlines() if line.startswith(tool)]

    # Systems

    def test_systems_are_told_apart(self):
        debian, ubuntu = "ID=debian\n", "ID=ubuntu\nID_LIKE=debian\n"
        mint = 'ID=linuxmint\nID_LIKE="ubuntu debian"\n'
        for release, version, status in (
                (debian + 'VERSION_ID="12"\n', "12.5", 0), (debian + "VERSION_ID=13\n", "13.0", 0),
                (debian, "forky/sid", 0), (debian + 'VERSION_ID="11"\n', "11.9", 3),
                (debian + 'VERSION_ID="9"\n', "9.13", 3), (ubuntu, "trixie/sid", 0), (ubuntu, "bullseye/sid", 3),
                (mint, "bookworm/sid", 0), (mint, "12.5", 0), (mint, "11.1", 3), (ubuntu, None, 3),
                ("ID=fedora\nVERSION_ID=40\n", None, 3), ('ID_LIKE="rhel fedora"\nID=rocky\n', None, 3),
                (None, None, 3)):
            with self.subTest(release=release, version=version):
                etc = self.folder + "/etc"
                shutil.rmtree(etc, ignore_errors=True)
                os.mkdir(etc)
                if release is not None:
                    write(etc + "/os-release", release)
                if version is not None:
                    write(etc + "/debian_version", version + "\n")
                done = self.bash(f"require_debian {etc}")
                self.assertEqual(status, done.returncode, done.stderr)
                self.assertEqual(status != 0, "This needs Debian 12" in done.stderr)

    def test_a_debian_without_apt_is_refused(self):
        write(self.folder + "/etc/os-release", "ID=debian\nVERSION_ID=12\n")
        os.remove(self.folder + "/bin/apt-get")
        for tool in ("cat", "bash"):
            os.symlink(shutil.which(tool), f"{self.folder}/bin/{tool}")
        done = self.bash(f"require_debian {self.folder}/etc", PATH=self.folder + "/bin")
        self.assertEqual(3, done.returncode)
        self.assertIn("with apt-get", done.stderr)

    # Packages

    def test_nothing_is_fetched_when_nothing_is_missing(self):
        done = self.start(self.tree + "/test")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual([], self.calls("apt-get"))

    def test_root_installs_what_is_missing_and_no_more(self):
        self.pretend_installed([name for name in self.packages() if name != "ninja-build"])
        self.assertEqual(0, self.start(self.tree + "/test").returncode)
        self.assertEqual(["apt-get update -q", "apt-get install -q -y --no-install-recommends ninja-build"],
                         self.calls("apt-get"))

    def test_a_removed_package_whose_settings_remain_is_missing(self):
        self.answer("dpkg-query", "cmake rc \ng++ ii \n")
        self.assertEqual("cmake\n", self.bash("missing_packages cmake g++").stdout)

    def test_sudo_serves_everyone_else_and_asks_no_question_without_a_terminal(self):
        self.answer("id", "1000\n")
        write(self.folder + "/bin/sudo", SUDO, 0o755)
        self.answer("dpkg-query")
        self.assertEqual(0, self.bash("install_packages cmake").returncode)
        self.assertEqual(["sudo -n apt-get update -q", "sudo -n env DEBIAN_FRONTEND=noninteractive apt-get install -q "
                          "-y --no-install-recommends cmake"], self.calls("sudo"))

    def test_packages_that_cannot_be_installed_are_named(self):
        self.answer("dpkg-query", "g++ ii \n")
        for case, prepare in (
                ("neither root nor sudo", lambda: self.answer("id", "1000\n")),
                ("sudo wants a password", lambda: write(self.folder + "/bin/sudo", "#!/bin/sh\nexit 1\n", 0o755)),
                ("apt-get fails", lambda: (self.answer("id", "0\n"), self.answer("apt-get", status=100)))):
            with self.subTest(case):
                prepare()
                done = self.bash("install_packages cmake g++ ninja-build", PATH=self.path_without_sudo())
                self.assertEqual(4, done.returncode)
                self.assertIn("could not be installed: cmake ninja-build\n", done.stderr)

    def path_without_sudo(self):
        for tool in ("env", "cat", "basename", "bash", "sh"):
            if not os.path.exists(f"{self.folder}/bin/{tool}"):
                os.symlink(shutil.which(tool), f"{self.folder}/bin/{tool}")
        return self.folder + "/bin"

    # Building

    def test_a_second_call_does_not_configure_again(self):
        self.start(self.tree + "/test")
        self.assertEqual(["cmake --preset dev", "cmake --build build/dev"], self.calls("cmake"))
        write(self.tree + "/build/dev/build.ninja", "")
        os.remove(self.folder + "/state/calls")
        self.start(self.tree + "/test")
        self.assertEqual(["cmake --build build/dev"], self.calls("cmake"))

    def test_changed_presets_configure_again(self):
        write(self.tree + "/build/dev/build.ninja", "")
        os.utime(self.tree + "/build/dev/build.ninja", (0, 0))
        self.start(self.tree + "/test")
        self.assertIn("cmake --preset dev", self.calls("cmake"))

    def test_a_failed_build_starts_nothing(self):
        self.answer("cmake", status=1)
        self.assertEqual(1, self.start(self.tree + "/test").returncode)
        self.assertEqual([], self.calls("ctest"))
        self.assertEqual((1, ""), (self.run_console().returncode, self.run_console().stdout))

    # ./test

    def test_options_of_ctest_are_passed_on(self):
        self.start(self.tree + "/test", "--quick", "-R", "a b", "-j3")
        [call] = self.calls("ctest")
        self.assertTrue(call.endswith(" -LE ^slow$ -R a b -j3"), call)

    def test_pictures_are_renewed_only_on_request(self):
        write(self.folder + "/bin/ctest", '#!/bin/bash\necho "renew:${COMMONUI_RENEW_PICTURES-}"\n', 0o755)
        self.assertIn("renew:\n", self.start(self.tree + "/test").stdout)
        self.assertIn("renew:1\n", self.start(self.tree + "/test", "--renew-pictures", "-R", "screen").stdout)

    def test_the_result_of_ctest_is_the_result(self):
        self.answer("ctest", status=8)
        self.assertEqual(8, self.start(self.tree + "/test").returncode)

    def test_what_test_does_not_know_is_refused_before_any_work(self):
        for arguments in (("--frobnicate",), ("navigator",), ("--quick", "-Q"), ("-R",), ("-R", "a", "-j")):
            with self.subTest(arguments):
                done = self.start(self.tree + "/test", *arguments)
                self.assertEqual(2, done.returncode)
                self.assertIn(arguments[-1], done.stderr)
        self.assertEqual([], self.calls())

    def test_help_needs_no_tool(self):
        for script in ("run", "test"):
            with self.subTest(script):
                done = self.start(f"{self.tree}/{script}", "--help")
                self.assertEqual(0, done.returncode)
                self.assertTrue(done.stdout.startswith(f"Usage: ./{script} "))
        self.assertEqual([], self.calls())

    def test_help_ends_with_the_consoles_own_once_it_is_built(self):
        self.assertIn("argument:--help\nplatform:offscreen\n", self.run_console("--help", DISPLAY="").stdout)
        shutil.rmtree(self.tree + "/build")
        self.assertNotIn("The console:", self.run_console("--help").stdout)

    # ./run

    def test_the_console_gets_its_arguments_as_they_are(self):
        done = self.run_console("--data", "a b", "", "--nmea=*")
        self.assertEqual(["argument:--data", "argument:a b", "argument:", "argument:--nmea=*", "platform:", "preload:",
                          "folder:" + self.folder], done.stdout.splitlines())
        self.assertEqual(7, done.returncode)

    def test_what_follows_two_hyphens_goes_to_the_console_unread(self):
        done = self.run_console("--", "--help")
        self.assertIn("argument:--help\n", done.stdout)
        self.assertNotIn("Usage: ./run", done.stdout)

    def test_words_and_surplus_options_are_refused_before_any_work(self):
        for arguments in (("console",), ("--build-only", "--monkey")):
            with self.subTest(arguments):
                done = self.run_console(*arguments)
                self.assertEqual(2, done.returncode)
                self.assertIn(arguments[-1], done.stderr)
        self.assertEqual([], self.calls())

    def test_build_only_starts_nothing(self):
        done = self.run_console("--build-only")
        self.assertEqual((0, ""), (done.returncode, done.stdout))
        self.assertIn("cmake --build build/release --target console loopback-guard", self.calls("cmake"))

    def test_calls_that_show_nothing_need_no_display(self):
        for option in ("--screenshot", "--screenshot=a.png", "--tour", "--monkey"):
            with self.subTest(option):
                done = self.run_console("--data", "d", option, DISPLAY="")
                self.assertIn("platform:offscreen\npreload:\n", done.stdout)

    def test_without_a_display_the_console_is_served_to_this_machine_alone(self):
        done = self.run_console("--data", "d", DISPLAY="")
        self.assertRegex(done.stdout, r"platform:vnc:size=\d+x\d+:port=59\d\d\n")
        self.assertIn(f"preload:{self.tree}/build/release/lib/libloopback-guard.so\n", done.stdout)
        port = done.stdout.split("port=")[1][:4]
        self.assertIn(f"vnc://127.0.0.1:{port}", done.stderr)

    def test_a_taken_port_is_passed_over(self):
        with socket.socket() as taken:
            try:
                taken.bind(("127.0.0.1", 5900))
            except OSError:
                pass  # Someone else has taken it, which serves as well.
            else:
                taken.listen()
            self.assertNotIn("port=5900\n", self.run_console(DISPLAY="").stdout)

    def test_nothing_is_served_without_the_guard(self):
        os.remove(self.tree + "/build/release/lib/libloopback-guard.so")
        done = self.run_console(DISPLAY="")
        self.assertEqual((1, ""), (done.returncode, done.stdout))
        self.assertIn("nothing is served", done.stderr)

    def test_a_platform_that_the_caller_chose_stays(self):
        done = self.run_console("-platform", "minimal", DISPLAY="")
        self.assertIn("platform:\npreload:\n", done.stdout)
        done = self.run_console("--tour", "t", DISPLAY="", QT_QPA_PLATFORM="linuxfb")
        self.assertIn("platform:linuxfb\npreload:\n", done.stdout)

    def test_wayland_is_a_display(self):
        done = self.run_console(DISPLAY="", WAYLAND_DISPLAY="wayland-0")
        self.assertIn("platform:\npreload:\n", done.stdout)


if __name__ == "__main__":
    unittest.main()

"""The Debian package on a clean system: a folder with Debian's base packages, which root enters.

BMCI2C_PACKAGE names the package's file. `./dev package` calls this.
"""

import os
import pathlib
import shutil
import subprocess

import pytest
import pywbem  # of the virtual environment that `./dev package` makes

PACKAGE = pathlib.Path(os.environ["BMCI2C_PACKAGE"])
SETTINGS = "/etc/bmci2c/platform.toml"
# Whether the administrator has enabled the service; Debian keeps that until the purge.
SERVICE_STATE = "/var/lib/systemd/deb-systemd-helper-enabled/bmci2c.service.dsh-also"
PROFILES = "/usr/share/bmci2c/profiles"

# What dpkg, apt and the dynamic loader keep for themselves, and what is no file of the system's.
KEPT_BY_OTHERS = ("/dev", "/proc", "/run", "/sys", "/tmp", "/var/cache", "/var/lib/apt",
                  "/var/lib/dpkg", "/var/log")  # fmt: skip


def mirror():
    """Where this machine's own Debian packages come from, and its release."""
    targets = subprocess.run(
        ["apt-get", "indextargets", "--format", "$(ORIGIN) $(CODENAME) $(REPO_URI)",
         "Created-By: Packages"],
        capture_output=True, text=True, check=True,
    ).stdout  # fmt: skip
    for line in targets.splitlines():
        origin, codename, address = line.split(" ", 2)
        if origin == "Debian":
            return codename, address
    raise AssertionError("this machine has no source of Debian packages")


class System:
    """A system below a folder. Nothing outlives a command in it: not even what it mounts."""

    def __init__(self, folder):
        self.folder = folder

    def make(self):
        codename, address = mirror()
        subprocess.run(
            ["debootstrap", "--variant=minbase", codename, str(self.folder), address],
            stdout=subprocess.DEVNULL,
            check=True,
        )

    def start(self, *command):
        enter = 'mount -t proc proc "$1/proc" && exec chroot "$@"'
        return subprocess.Popen(
            ["unshare", "--mount", "--pid", "--fork", "--kill-child", "bash", "-c", enter, "enter",
             str(self.folder), *command],
            env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive"},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )  # fmt: skip

    def run(self, *command, check=True):
        process = self.start(*command)
        out, err = process.communicate()
        if check:
            assert process.returncode == 0, out + err
        return subprocess.CompletedProcess(command, process.returncode, out, err)

    def files(self):
        listing = self.run("find", "/", "-xdev").stdout.splitlines()
        return {name for name in listing if not name.startswith(KEPT_BY_OTHERS)}

    def write(self, name, text):
        (self.folder / name.lstrip("/")).write_text(text)

    def read(self, name):
        return (self.folder / name.lstrip("/")).read_text()


@pytest.fixture(scope="module")
def clean(tmp_path_factory):
    system = System(tmp_path_factory.mktemp("system") / "root")
    try:
        system.make()
        depends = subprocess.run(
            ["dpkg-deb", "-f", str(PACKAGE), "Depends"], capture_output=True, text=True, check=True
        ).stdout.strip()
        system.run("apt-get", "satisfy", "-y", "--no-install-recommends", depends)
        yield system
    finally:
        shutil.rmtree(system.folder, ignore_errors=True)


@pytest.fixture
def system(clean):
    """The system with the package; afterwards without it."""
    clean.before = clean.files()
    shutil.copy(PACKAGE, clean.folder / "tmp" / "bmci2c.deb")
    clean.run("dpkg", "--install", "/tmp/bmci2c.deb")
    yield clean
    clean.run("dpkg", "--purge", "bmci2c")


@pytest.mark.parametrize("profile, code", [("pass", 0), ("two-nodes-one-failed", 1)])
def test_installed_command_tests_a_simulated_machine(system, profile, code):
    done = system.run("bmci2c", "--simulate", f"{PROFILES}/{profile}.toml", "run", check=False)
    assert (done.returncode, done.stderr) == (code, "")
    assert "166-" in done.stdout


def test_installed_settings_are_in_force_and_all_commented_out(system):
    lines = system.read(SETTINGS).splitlines()
    assert lines and all(line == "" or line.startswith("#") for line in lines)
    assert f"{SETTINGS}" in system.run("bmci2c", "info").stdout


def test_doctor_finds_nothing_wrong_on_a_simulated_machine(system):
    system.run("bmci2c", "--simulate", f"{PROFILES}/pass.toml", "doctor")


def test_installed_command_serves_pywbem(system):
    profile = f"{PROFILES}/pass.toml"
    server = system.start("bmci2c", "--simulate", profile, "serve", "--listen", "127.0.0.1:0")
    try:
        url = server.stdout.readline().split()[-1].removesuffix("/cimom")
        with pywbem.WBEMConnection(url, default_namespace="root/QUVSD") as connection:
            assert pywbem.WBEMServer(connection).interop_ns == "root/interop"
            (service,) = connection.EnumerateInstanceNames("CIM_DiagnosticService")
            value, out = connection.InvokeMethod("RunDiagnostic", service)
            assert (value, list(out)) == (1, ["Job"])
            (record,) = connection.EnumerateInstances("CIM_DiagnosticCompletionRecord")
            assert record["RecordData"].startswith("166-000-")
    finally:
        server.kill()  # `unshare` takes no other signal, and its child goes with it
        server.communicate()


def test_service_has_its_user_and_waits_to_be_enabled(system):
    assert "\nbmci2c:" in system.read("/etc/passwd")
    assert (system.folder / "lib/systemd/system/bmci2c.service").is_file()
    system.run("systemd-analyze", "verify", "--man=no", "bmci2c.service")
    done = system.run("systemctl", "is-enabled", "bmci2c", check=False)
    assert done.stdout == "disabled\n"


def test_removed_package_leaves_its_settings_only(system):
    system.write(SETTINGS, '[log]\nsink = "none"\n')
    system.run("dpkg", "--remove", "bmci2c")
    assert system.files() - system.before == {"/etc/bmci2c", SETTINGS, SERVICE_STATE}
    assert system.read(SETTINGS) == '[log]\nsink = "none"\n'


def users_of(system):
    return "bmci2c" in system.read("/etc/passwd"), "bmci2c" in system.read("/etc/group")


def test_purged_package_leaves_nothing(system):
    system.run("dpkg", "--purge", "bmci2c")
    assert system.files() == system.before
    assert users_of(system) == (False, False)


def test_purge_removes_and_names_the_password_files_beside_the_settings(system):
    system.write("/etc/bmci2c/bmc.password", "secret\n")
    system.run("chown", "bmci2c:bmci2c", "/etc/bmci2c/bmc.password")
    done = system.run("dpkg", "--purge", "bmci2c")
    assert "bmci2c: removing /etc/bmci2c/bmc.password\n" in done.stdout
    assert system.files() == system.before
    assert users_of(system) == (False, False)


def test_user_stays_while_a_file_elsewhere_belongs_to_it(system):
    system.write("/srv/bmc.password", "secret\n")
    system.run("chown", "bmci2c:bmci2c", "/srv/bmc.password")
    done = system.run("dpkg", "--purge", "bmci2c")
    assert "\n/srv/bmc.password\n" in done.stdout
    assert users_of(system) == (True, True)
    system.run("rm", "/srv/bmc.password")
    system.run("userdel", "bmci2c")
    assert system.files() == system.before


def test_removed_package_is_unregistered_from_its_server(system):
    system.write("/usr/bin/sfcbunstage", '#!/bin/sh\necho "$0 $@" >>/tmp/calls\n')
    for name in ("sfcbstage", "sfcbrepos"):
        shutil.copy(system.folder / "usr/bin/sfcbunstage", system.folder / "usr/bin" / name)
    system.run("sh", "-c", "chmod 755 /usr/bin/sfcb*")
    system.run("dpkg", "--remove", "bmci2c")
    assert system.read("/tmp/calls") == (
        "/usr/bin/sfcbunstage -n root/quvsd -r bmci2c.reg bmci2c-published.mof\n"
        "/usr/bin/sfcbrepos -f\n"
    )
    system.run("sh", "-c", "rm /usr/bin/sfcb* /tmp/calls")

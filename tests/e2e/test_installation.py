"""What `cmake --install` puts where, and that the installed command finds it."""

import os
import pathlib
import subprocess

import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["BMCI2C_BUILD_SHARE"]).parent
EXPECTED = {
    "bin/bmci2c",
    "cmpi/libbmci2c.cmpi.so",
    "lib/systemd/system/bmci2c.service",
    "lib/sysusers.d/bmci2c.conf",
    "lib/udev/rules.d/60-bmci2c.rules",
    "share/bash-completion/completions/bmci2c",
    "share/fish/vendor_completions.d/bmci2c.fish",
    "share/zsh/vendor-completions/_bmci2c",
    "share/bmci2c/bmci2c.msg.xml",
    "share/bmci2c/platform.toml",
    "share/bmci2c/run.schema.json",
    "share/bmci2c/profiles/pass.toml",
    "share/bmci2c/schema/bmci2c-pegasus.mof",
    "share/bmci2c/schema/bmci2c-published.mof",
    "share/bmci2c/schema/bmci2c.mof",
    "share/bmci2c/schema/bmci2c.reg",
    "share/bmci2c/schema/interop.mof",
    "share/doc/bmci2c/deployment.md",
    "share/doc/bmci2c/serve.md",
    "share/doc/bmci2c/troubleshooting.md",
    "share/man/man1/bmci2c.1",
    "share/man/man5/bmci2c.msg.xml.5",
    "share/man/man5/platform.toml.5",
}


@pytest.fixture
def prefix(tmp_path):
    folder = tmp_path / "a prefix"
    done = subprocess.run(
        ["cmake", "--install", str(BUILD), "--prefix", str(folder)],
        capture_output=True,
        text=True,
        check=False,
    )
    assert done.returncode == 0, done.stderr
    return folder


def installed(prefix):
    names = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if path.is_file()}
    (module,) = (name for name in names if name.endswith("/cmpi/libbmci2c.cmpi.so"))
    return {name.replace(module, "cmpi/libbmci2c.cmpi.so") for name in names}


def test_every_file_has_its_usual_place(prefix):
    names = installed(prefix)
    assert EXPECTED <= names
    others = {name for name in names - EXPECTED if not name.startswith("share/bmci2c/profiles/")}
    assert all(name.startswith("share/doc/bmci2c/") for name in others), others


def test_installed_command_finds_module_schema_and_catalog(bmci2c, prefix):
    program = str(prefix / "bin" / "bmci2c")
    profile = str(prefix / "share/bmci2c/profiles/two-nodes-one-failed.toml")
    result = bmci2c.bare("--simulate", profile, "run", program=program)
    assert (result.code, result.err) == (1, "")
    info = bmci2c.bare("info", "--json", program=program).json()
    assert info["module"].startswith(str(prefix))
    assert info["schema"] == str(prefix / "share/bmci2c/schema/bmci2c.mof")
    assert info["settings"]["diagnostics.root"]["value"] == str(prefix / "share")


def test_sample_settings_change_nothing(bmci2c, prefix):
    sample = prefix / "share/bmci2c/platform.toml"
    plain, with_sample = (
        bmci2c.bare("--config", config, "info", "--json").json()["settings"]
        for config in (bmci2c.write("none.toml", ""), str(sample))
    )
    del plain["config_file"], with_sample["config_file"]
    assert with_sample == plain


def in_folder(folder, *arguments, path=None):
    """Calls cmake as for a machine whose root is this folder."""
    environment = {**os.environ, "DESTDIR": str(folder)}
    if path:
        environment["PATH"] = str(path)
    return subprocess.run(
        ["cmake", *arguments], env=environment, capture_output=True, text=True, check=True
    )


@pytest.fixture
def machine(tmp_path):
    """A folder that stands for a machine, with an installation in its /usr/local."""
    in_folder(tmp_path, "--install", str(BUILD), "--prefix", "/usr/local")
    return tmp_path


def uninstall(machine):
    script = SOURCE / "packaging" / "Uninstall.cmake"
    return in_folder(machine, f"-DBUILD={BUILD}", "-DPREFIX=/usr/local", "-P", str(script)).stdout


def files(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}


def test_installation_for_the_machine_brings_settings_but_keeps_those_that_are_there(machine):
    settings = machine / "etc/bmci2c/platform.toml"
    assert settings.read_text() == (SOURCE / "data" / "platform.toml").read_text()
    settings.write_text("[log]\n")
    in_folder(machine, "--install", str(BUILD), "--prefix", "/usr/local")
    assert settings.read_text() == "[log]\n"


def test_installation_below_another_prefix_touches_nothing_else(tmp_path):
    in_folder(tmp_path, "--install", str(BUILD), "--prefix", "/opt/bmci2c")
    assert all(name.startswith("opt/bmci2c/") for name in files(tmp_path))


def test_uninstalling_leaves_no_file_and_no_folder_of_its_own(machine):
    uninstall(machine)
    assert files(machine) == set()
    assert not list(machine.rglob("bmci2c"))


def test_uninstalling_keeps_what_is_not_its_own(machine):
    settings = machine / "etc/bmci2c/platform.toml"
    settings.write_text("[log]\n")
    (machine / "etc/bmci2c/passwords").write_text("user:hash\n")
    (machine / "usr/local/bin/other").write_text("")
    assert f"Changed, so it stays: {settings}" in uninstall(machine)
    assert files(machine) == {
        "etc/bmci2c/passwords", "etc/bmci2c/platform.toml", "usr/local/bin/other"
    }  # fmt: skip


@pytest.mark.parametrize("code", (0, 1))
def test_service_user_is_made_by_the_programs_of_systemd_and_udev(tmp_path, code):
    programs = tmp_path / "programs"
    programs.mkdir()
    for name in ("systemd-sysusers", "udevadm"):
        program = programs / name
        program.write_text(f'#!/bin/sh\necho "{name} $@" >>{tmp_path}/calls\nexit {code}\n')
        program.chmod(0o755)
    script = SOURCE / "packaging" / "ServiceUser.cmake"
    done = in_folder(
        "", "-DCMAKE_INSTALL_PREFIX=/usr/local", "-P", str(script),
        path=f"{programs}:{os.environ['PATH']}",
    )  # fmt: skip
    assert (tmp_path / "calls").read_text() == (
        "systemd-sysusers /usr/local/lib/sysusers.d/bmci2c.conf\n"
        "udevadm control --reload\n"
        "udevadm trigger --subsystem-match=ipmi\n"
    )
    assert done.stderr.count("which failed") == 3 * code

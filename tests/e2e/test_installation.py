"""What `cmake --install` puts where, and that the installed command finds it."""

import os
import pathlib
import subprocess

import pytest

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
    build = pathlib.Path(os.environ["BMCI2C_BUILD_SHARE"]).parent
    folder = tmp_path / "a prefix"
    done = subprocess.run(
        ["cmake", "--install", str(build), "--prefix", str(folder)],
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

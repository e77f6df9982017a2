"""The file system of the test machine: the installed product, the libraries that it needs, busybox,
and the kernel's IPMI modules.

The build passes BMCI2C_BUILD_FOLDER.
"""

import os
import re
import shutil
import subprocess
from pathlib import Path

USERS = "root:x:0:0:root:/:/bin/sh\nguest:x:1000:1000:guest:/tmp:/bin/sh\n"
GROUPS = "root:x:0:\nguest:x:1000:\n"


def shared_libraries(program):
    """What the dynamic linker loads for the program, and the linker itself."""
    listing = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
    assert "not found" not in listing, listing
    return re.findall(r"(/\S+) \(0x", listing)


def copy(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(source, target)


def install_product(tree):
    build = os.environ["BMCI2C_BUILD_FOLDER"]
    prefix = tree / "usr"
    # Debug information would only make the machine start later.
    subprocess.run(
        ["cmake", "--install", build, "--prefix", prefix, "--strip"],
        stdout=subprocess.DEVNULL,
        check=True,
    )
    programs = [prefix / "bin/bmci2c", *prefix.rglob("*.so")]
    for library in {library for program in programs for library in shared_libraries(program)}:
        copy(library, tree / library.lstrip("/"))


def populate(tree, kernel):
    install_product(tree)
    copy(shutil.which("busybox"), tree / "bin/busybox")
    copy(Path(__file__).with_name("init"), tree / "init")
    shutil.copytree(kernel / "lib/modules", tree / "lib/modules")
    (tree / "etc").mkdir()
    (tree / "etc/passwd").write_text(USERS)
    (tree / "etc/group").write_text(GROUPS)
    for name in ("dev", "proc", "sys", "tmp"):
        (tree / name).mkdir()


def build(folder, kernel):
    """Builds the initramfs in `folder`; returns its path."""
    tree = folder / "tree"
    populate(tree, kernel)
    subprocess.run(["chmod", "-R", "go+rX", tree], check=True)  # whatever umask built it
    names = sorted(str(path.relative_to(tree)) for path in tree.rglob("*"))
    archive = folder / "initramfs"
    with open(archive, "wb") as output:
        subprocess.run(
            ["cpio", "--create", "--format=newc", "--owner=0:0", "--quiet"],
            input="\n".join(names).encode(),
            stdout=output,
            cwd=tree,
            check=True,
        )
    shutil.rmtree(tree)
    return archive

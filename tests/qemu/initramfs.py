"""The file system of the test machine: module, command and what they need, each in the place where
an installation puts it, busybox, and the kernel's IPMI modules.

The build passes BMCI2C_BIN, BMCI2C_BUILD_MODULE, BMCI2C_BUILD_SHARE and BMCI2C_MULTIARCH.
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


def install(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(source, target)


def install_program(source, target):
    """Debug information only makes the machine start later."""
    install(source, target)
    subprocess.run(["objcopy", "--strip-debug", target], check=True)


def populate(tree, kernel):
    program = os.environ["BMCI2C_BIN"]
    module = Path(os.environ["BMCI2C_BUILD_MODULE"])
    modules = tree / "usr/lib" / os.environ["BMCI2C_MULTIARCH"] / "cmpi"
    install_program(program, tree / "usr/bin/bmci2c")
    install_program(module, modules / module.name)
    shutil.copytree(os.environ["BMCI2C_BUILD_SHARE"], tree / "usr/share")
    for library in {*shared_libraries(program), *shared_libraries(module)}:
        install(library, tree / library.lstrip("/"))

    install(shutil.which("busybox"), tree / "bin/busybox")
    install(Path(__file__).with_name("init"), tree / "init")
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

// SPDX-License-Identifier: MIT
#pragma once

#include "support/test_shell.h"

#include <QFile>

namespace fennel::test {

// A QEMU whose processor fails with KVM, and that is the real one without it.
constexpr char diesOfKvm[] = R"py(#!/usr/bin/python3
import json, os, re, socket, sys
words = " ".join(sys.argv)
with open(os.environ["TMPDIR"] + "/starts", "a") as log:
    log.write("kvm " if "-accel kvm" in words else "tcg ")
if "-accel kvm" not in words:
    os.execv("/usr/bin/qemu-system-x86_64", sys.argv)
control = socket.socket(fileno=int(re.search("control,fd=([0-9]+)", words).group(1)))
# Two files: one for both ways forgets what it has read ahead when it writes.
orders, answers = control.makefile("r"), control.makefile("w")
def say(**line):
    answers.write(json.dumps(line) + "\n")
    answers.flush()
say(QMP={})
for line in orders:
    say(**{"return": {"status": "internal-error"} if "query-status" in line else {}})
    if "capabilities" in line:
        say(event="STOP")
)py";

// Makes it in the test's own folder, which it returns for the PATH. Its starts stand in the file
// "starts" of the folder for temporary files.
inline QByteArray dyingQemu(TestShell& shell)
{
    const QString file = shell.file(QStringLiteral("qemu-system-x86_64"), diesOfKvm);
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folderPart(file).toUtf8();
}

} // namespace fennel::test

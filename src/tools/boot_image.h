// SPDX-License-Identifier: MIT
// The stick of a boot test: an image with one partition, a loader, the message file and a menu,
// made by syslinux and mtools without any right. It has no name any more once it is made.
#pragma once

#include "base/result.h"
#include "base/shell_context.h"
#include "container/staging.h"

#include <QProcess>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace fennel {

struct BootStick {
    QByteArray message; // the message file; syslinux boots plain archives only
    QStringList titles; // of the menu; at least one
    // A Grub4DOS loader ("grldr") that boots the message, and a menu.lst for it, which may be
    // empty; without a loader it is syslinux.
    QString loader;
    QByteArray menu;
};

// An open file that is nowhere on the disk, for reading only.
class NamelessFile {
public:
    explicit NamelessFile(int descriptor = -1) : m_descriptor(descriptor) {}
    ~NamelessFile();
    NamelessFile(NamelessFile&& other) noexcept;
    NamelessFile& operator=(NamelessFile&& other) noexcept;
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

// syslinux.cfg for these titles. Control characters become blanks, and what is longer than a line
// that the loader reads is cut.
QByteArray syslinuxMenu(const QStringList& titles);
// menu.lst for Grub4DOS: the entries of the user's own, if there are any, else the titles.
QByteArray grubMenu(const BootStick& stick);

// What a boot test needs, and the Debian package it is in: the failure that names the first one
// that is missing.
Result<QString> findProgram(const QString& name);
Result<QString> findSyslinuxFile(const QString& name);

// Makes one image. Ends what it started when it is destroyed, and leaves no file.
class BootImage : public QObject {
    Q_OBJECT
public:
    explicit BootImage(const Shell& shell, QObject* parent = nullptr);
    ~BootImage() override;

    // One of the signals follows, never before this returns.
    void make(const BootStick& stick);
    // Ends the work and removes what it made; nothing is heard of it any more.
    void end();
    // After made(), once.
    [[nodiscard]] NamelessFile take() { return std::move(m_image); }

Q_SIGNALS:
    void made();
    void failed(const fennel::Failure& failure);

private:
    struct Step {
        QString program;
        QStringList arguments;
    };
    Result<void> lay(const BootStick& stick);
    Result<void> layFile(const QString& name, const QByteArray& bytes);
    Result<void> planSteps(const BootStick& stick, const QStringList& files);
    void next();
    void finish();
    void fail(const Failure& failure);

    Shell m_shell;
    std::optional<Staging> m_folder;
    std::vector<Step> m_steps; // those to come, the next one last
    std::unique_ptr<QProcess> m_process;
    NamelessFile m_image;
};

} // namespace fennel

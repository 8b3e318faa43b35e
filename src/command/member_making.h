// SPDX-License-Identifier: MIT
// Members made from the user's files: pictures as the boot screen can show them, fonts from
// installed faces. Both are made by the tools of the editor, in a folder of their own.
#pragma once

#include "container/message_file.h"
#include "document/session.h"
#include "fonts/font_making.h"

#include <memory>

namespace fennel {

class MemberMaking {
public:
    explicit MemberMaking(QString appPath) : m_appPath(std::move(appPath)) {}

    // The bytes for the member `name` from a file or, of "-", standard input. A JPEG member is
    // scaled to what it replaces, a new background or logo to the others of its kind, and written
    // as the engine's decoder takes it; everything else is taken as it is. What was made once is
    // made no second time.
    Result<QByteArray> memberFrom(const QString& path, const MessageFile& message,
                                  const QByteArray& name);

private:
    Result<QByteArray> source(const QString& path);
    Result<QByteArray> picture(const QByteArray& source, QSize size);
    Result<Session*> session();

    QString m_appPath;
    KeptPrompts m_prompts;
    std::unique_ptr<Session> m_session;
    QMap<QString, QByteArray> m_sources; // by path
    QMap<QString, QByteArray> m_made;    // by path and size
};

struct FontRequest {
    QString face;
    double size = 14; // points
    QString chars;    // ranges; empty: Latin and Cyrillic
};

// A font file as the editor's dialog makes it. NotFound: no such face, with those like it in
// `near`, or a set of characters that is none.
Result<QByteArray> makeFont(const QString& appPath, const FontRequest& request, QStringList& near);

} // namespace fennel

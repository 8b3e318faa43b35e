// SPDX-License-Identifier: MIT
#include "picture_workspace.h"

#include <QDir>

namespace fennel::test {

using namespace Qt::StringLiterals;

PictureWorkspace::PictureWorkspace()
{
    t.run.GfxOpened = true;
    t.run.GfxHasZuk = true;
    t.run.BackFile = member(u"back.jpg"_s);
    t.run.BackWidth = 64;
    t.run.BackHeight = 48;
    jpeg(member(u"back.jpg"_s), {64, 48}, "red");
    jpeg(member(u"back_01.jpg"_s), {80, 60}, "lime");
    jpeg(member(u"Logo_msk.jpg"_s), {40, 30}, "white");
    jpeg(member(u"Logo_00.jpg"_s), {20, 10}, "blue");
    host.backs = QStringList{u"back.jpg"_s, u"back_01.jpg"_s};
    host.logos = QStringList{u"Logo_msk.jpg"_s, u"Logo_00.jpg"_s};
    t.member(u"#.lst"_s, "back.jpg\r\nLogo_msk.jpg\r\nLogo_00.jpg\r\nback_01.jpg\r\nmine.bin\r\n");
    t.member(u"mine.bin"_s, "x");
    user.chosen = jpeg(t.path(u"a #1 &$.jpg"_s), {300, 200}, "yellow");
}

QString PictureWorkspace::jpeg(const QString& path, QSize size, const char* colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(QString::fromLatin1(colour)));
    EXPECT_TRUE(picture.save(path, "jpeg", 95));
    return path;
}

QString PictureWorkspace::look(const QString& name) const
{
    const QImage picture(member(name), "jpeg");
    if (picture.isNull())
        return u"none"_s;
    const QRgb colour = picture.pixel(picture.width() / 2, picture.height() / 2);
    const auto digit = [](int value) {
        return QChar(value > 200 ? u'f' : value < 60 ? u'0' : u'?');
    };
    return u"%1x%2 %3%4%5"_s.arg(picture.width())
        .arg(picture.height())
        .arg(digit(qRed(colour)))
        .arg(digit(qGreen(colour)))
        .arg(digit(qBlue(colour)));
}

QStringList PictureWorkspace::listed() const
{
    return QString::fromUtf8(bytesOf(member(u"#.lst"_s))).split(u"\r\n"_s, Qt::SkipEmptyParts);
}

QMap<QString, QByteArray> PictureWorkspace::everything() const
{
    QMap<QString, QByteArray> files;
    for (const QString& name : filesLike(t.run.Workspace, u"*"_s))
        files.insert(name, bytesOf(member(name)));
    for (const QString& name : filesLike(t.run.WorkspaceRoot, u"*"_s))
        files.insert(u"../"_s + name, {});
    return files;
}

} // namespace fennel::test

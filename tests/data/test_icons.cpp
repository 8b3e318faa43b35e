// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

const QString folder = QStringLiteral(FENNEL_DATA_DIR "/icons/");

QStringList drawn()
{
    QStringList names;
    for (const int id : {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15, 16, 18, 19, 21, 37, 38, 49})
        names << QString::number(id);
    for (const auto& kind :
         {u"engine"_s, u"font"_s, u"picture"_s, u"text"_s, u"level"_s, u"sound"_s, u"unknown"_s})
        names << u"member-"_s + kind;
    return names;
}

QString textOf(const QString& name)
{
    QFile file(folder + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QImage render(const QString& name, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer renderer(folder + name + u".svg"_s);
    EXPECT_TRUE(renderer.isValid()) << name.toStdString();
    renderer.render(&painter);
    return image;
}

} // namespace

TEST(Icons, EachIsInTheResourceFileAndDrawsSomething)
{
    const QString list = textOf(u"icons.qrc"_s);
    EXPECT_TRUE(list.contains(u"prefix=\"/icons\""));
    EXPECT_TRUE(list.contains(u"<file>fennel-gfx.svg</file>"));
    QImage blank(16, 16, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::transparent);
    for (const QString& name : drawn()) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(list.contains(u"<file>"_s + name + u".svg</file>"_s));
        EXPECT_NE(render(name, 16), blank);
    }
}

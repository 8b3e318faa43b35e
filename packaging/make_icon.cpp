// SPDX-License-Identifier: MIT
// make_icon SVG SIZE PNG: the program's icon as a picture of SIZE times SIZE pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    return drawing.isValid() && picture.save(QString::fromLocal8Bit(argv[3])) ? 0 : 1;
}

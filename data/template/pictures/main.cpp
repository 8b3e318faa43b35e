// SPDX-License-Identifier: MIT
// Writes the template's pictures as JPEG into the folder named on the command line. Run by hand
// (target template_pictures) after a change of the drawing; the files themselves are kept, so that
// a build gives the same template whatever version of the JPEG library it finds.
#include "painting.h"

#include <QGuiApplication>
#include <QImageWriter>

#include <cstdio>

using namespace fennel;
using namespace Qt::StringLiterals;

namespace {

// At this quality the writer halves the colour planes both ways (4:2:0), the only kind that boots;
// the tests of the template look at the result.
constexpr int quality = 88;

bool save(const QString& path, const QImage& image)
{
    QImageWriter writer(path, "jpeg");
    writer.setQuality(quality);
    if (writer.write(image.convertToFormat(QImage::Format_RGB32)))
        return true;
    std::fprintf(stderr, "draw_pictures: %s: %s\n", qPrintable(path),
                 qPrintable(writer.errorString()));
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: draw_pictures FOLDER\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + u'/';
    const bool done = save(folder + u"back.jpg"_s, paintBackground()) &&
                      save(folder + u"Logo_00.jpg"_s, paintLogo()) &&
                      save(folder + u"Logo_msk.jpg"_s, paintLogoMask()) &&
                      save(folder + u"glass_02.jpg"_s, paintGlassMask()) &&
                      save(folder + u"ani_03.jpg"_s, paintBee()) &&
                      save(folder + u"ani_03_msk.jpg"_s, paintBeeMask());
    return done ? 0 : 1;
}

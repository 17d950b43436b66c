// desktop-files FOLDER DRAWING SMALL_DRAWING: puts what the desktop reads of an installed player below FOLDER, as below
// share/: the entries and the types of file, in the words that the player itself uses, and its icon in all sizes.

#include "desktop/file_classes.h"
#include "platform/xdg/file_class_registry.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{

using namespace tandrel;

constexpr std::array kSizes{16, 22, 24, 32, 48, 64, 96, 128, 256, 512};
// Up to here the parts of the whole drawing are smaller than a pixel.
constexpr int kLargestSmall = 16;
// What is installed is found as commands are, wherever the whole was moved to.
const EntryPrograms kPrograms{"tandrel-open", "tandrel-player"};

/// Takes what a start would write, and writes nothing.
class Collector : public FileClassRegistry
{
public:
    Collector() : FileClassRegistry({}) {}
    void settle() override { all = collected(); }
    FileClasses all;
};

FileClasses fileClasses()
{
    Collector collector;
    Services services;
    services.registry = &collector;
    installServices(services);
    writeFileClasses("", false);
    installServices({});
    return collector.all;
}

[[noreturn]] void giveUp(const QString& path)
{
    std::fprintf(stderr, "desktop-files: %s can't be read, or written\n", qPrintable(path));
    std::exit(EXIT_FAILURE);
}

void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        giveUp(path);
}

void write(const QString& path, const std::string& content) { write(path, QByteArray::fromStdString(content)); }

QByteArray read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        giveUp(path);
    return file.readAll();
}

void drawIcon(QSvgRenderer& drawing, int size, const QString& folder)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    const QString path = folder + QStringLiteral("/%1x%1/apps/tandrel-player.png").arg(size);
    QDir().mkpath(QFileInfo(path).path());
    if (!image.save(path))
        giveUp(path);
}

void drawIcons(const QString& folder, const QString& whole, const QString& small)
{
    QSvgRenderer drawing(whole);
    QSvgRenderer smallDrawing(small);
    if (!drawing.isValid() || !smallDrawing.isValid())
        giveUp(drawing.isValid() ? small : whole);
    for (const int size : kSizes)
        drawIcon(size > kLargestSmall ? drawing : smallDrawing, size, folder);
    write(folder + QStringLiteral("/scalable/apps/tandrel-player.svg"), read(whole));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("Usage: desktop-files FOLDER DRAWING SMALL_DRAWING\n", stderr);
        return EXIT_FAILURE;
    }
    const auto argument = [&](int index) { return QFile::decodeName(argv[index]); };
    const QString folder = argument(1);
    const FileClasses classes = fileClasses();
    const auto entry = [&](std::string_view name) {
        return folder + QStringLiteral("/applications/") + QString::fromUtf8(name.data(), int(name.size()));
    };
    write(entry(kPlayerEntry), playerEntry(classes, kPrograms));
    write(entry(kDiscEntry), discEntry(kPrograms));
    write(folder + QStringLiteral("/mime/packages/tandrel-player.xml"), mimePackage(classes));
    drawIcons(folder + QStringLiteral("/icons/hicolor"), argument(2), argument(3));
    return EXIT_SUCCESS;
}

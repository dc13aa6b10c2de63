// Draws every picture of the program into the resource folder, rewrites the resource collection
// that lists them, and makes the contact sheet. Re-running it reproduces the same files.
//
//     selvora_drawicons [resources folder] [contact sheet]
//
// Without arguments it writes into the source tree it was built from.

#include "drawicons/IconCatalogue.h"

#include "app/Definitions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>

using selvora::tools::IconCatalogue;

int main(int argc, char** argv) {
    // Drawing needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    selvora::Definitions::setScreenSizeOverride(QSize(1600, 900));

    const QStringList arguments = app.arguments();
    const QString resources =
        arguments.size() > 1 ? arguments.at(1) : QStringLiteral(SELVORA_SOURCE_DIR "/resources");
    const QString sheetPath = arguments.size() > 2
                                  ? arguments.at(2)
                                  : QStringLiteral(SELVORA_SOURCE_DIR "/tools/contact_sheet.png");

    QDir folder(resources);
    if (!folder.mkpath("imagens")) {
        std::fprintf(stderr, "cannot create %s/imagens\n", qPrintable(resources));
        return 1;
    }

    const QVector<IconCatalogue::Icon> icons = IconCatalogue::all();
    QString qrc;
    QTextStream out(&qrc);
    out << "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/imagens\">\n";
    for (const IconCatalogue::Icon& icon : icons) {
        const QString file = "imagens/" + icon.name + ".png";
        if (!IconCatalogue::render(icon).save(folder.filePath(file), "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(folder.filePath(file)));
            return 1;
        }
        out << "    <file alias=\"" << icon.name << "\">" << file << "</file>\n";
    }
    out << "</qresource>\n</RCC>\n";
    out.flush();

    QFile collection(folder.filePath("imagens.qrc"));
    if (!collection.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        collection.write(qrc.toUtf8()) < 0) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(collection.fileName()));
        return 1;
    }
    collection.close();

    // The application icon for the desktop, outside the resource collection.
    for (const IconCatalogue::Icon& icon : IconCatalogue::hicolor()) {
        const QString file = "hicolor/" + icon.name + ".png";
        if (!folder.mkpath(QFileInfo(folder.filePath(file)).path()) ||
            !IconCatalogue::render(icon).save(folder.filePath(file), "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(folder.filePath(file)));
            return 1;
        }
    }

    if (!IconCatalogue::contactSheet(icons).save(sheetPath, "PNG")) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(sheetPath));
        return 1;
    }
    std::printf("%d pictures written to %s\n", int(icons.size()), qPrintable(folder.path()));
    return 0;
}

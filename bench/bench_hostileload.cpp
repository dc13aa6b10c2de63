// Loading large projects: the time of a project four times as large against the time of the
// base size, for many scenes and for many distinct media. Linear loading gives a ratio near 4.

#include "app/Definitions.h"
#include "document/Document.h"
#include "project/OperationsFile.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include <sys/resource.h>

using selvora::Definitions;
using selvora::document::Document;
using selvora::project::OperationsFile;

namespace {

const char* const kStart = "   <start id=\"%1\" target=\"%1\">"
                           "<property name=\"left\" value=\"%2\"/>"
                           "<property name=\"top\" value=\"10\"/>"
                           "<property name=\"width\" value=\"20\"/>"
                           "<property name=\"height\" value=\"15\"/>"
                           "<property name=\"layer\" value=\"%3\"/>"
                           "<property name=\"transparency\" value=\"0\"/></start>\n";

// A project of `scenes` scenes holding `media` pictures in all, each shown from second 0.
QByteArray project(int scenes, int media) {
    QByteArray bytes = "<!DOCTYPE FOLIOMARK>\n<foliomark id=\"grande.svproj\" version=\"1.0\">\n"
                       " <meta view-width=\"720\" view-height=\"405\"/>\n";
    const int perScene = media / scenes;
    int id = 0;
    for (int s = 0; s < scenes; ++s) {
        // Orders run backwards, so that the scenes must really be sorted.
        bytes += QString(" <scene id=\"%1\" label=\"Cena %2\" time=\"30\" order=\"%3\">\n")
                     .arg(s)
                     .arg(s + 1)
                     .arg(scenes - s)
                     .toUtf8();
        QByteArray starts;
        for (int m = 0; m < perScene; ++m, ++id) {
            bytes += QString("  <image id=\"%1\" label=\"Foto %1\" hover=\"\" "
                             "src=\"/medias/images/Midia_%1.png\"/>\n")
                         .arg(id)
                         .toUtf8();
            starts += QString(kStart).arg(id).arg(id % 90).arg(m + 1).toUtf8();
        }
        if (!starts.isEmpty())
            bytes += "  <sync time=\"0\" id=\"0\">\n" + starts + "  </sync>\n";
        bytes += " </scene>\n";
    }
    return bytes + "</foliomark>\n";
}

// CPU time of the process: the machines are shared, and waiting for a core is not loading.
double cpuMs() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

// The best of three loads, each into a cleared document, with the opening the controller does.
double loadMs(Document* doc, const QString& folder, const QByteArray& bytes) {
    QFile file(folder + "/grande.svproj");
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(bytes);
    file.close();
    double best = -1;
    for (int run = 0; run < 3; ++run) {
        doc->clearDocument();
        doc->setProjectDirectory(folder);
        doc->setProjectName("grande.svproj");
        const double start = cpuMs();
        if (OperationsFile(doc).loadProject() != QLatin1String("noError"))
            return -1;
        doc->openProject();
        const double elapsed = cpuMs() - start;
        best = best < 0 ? elapsed : std::min(best, elapsed);
    }
    return best;
}

// A project of `bytes` bytes of text media, each with a wording of 200 letters.
QByteArray textProject(int bytes) {
    QByteArray text = "<!DOCTYPE FOLIOMARK>\n<foliomark id=\"grande.svproj\" version=\"1.0\">\n"
                      " <scene id=\"0\" label=\"Textos\" time=\"30\" order=\"0\">\n";
    const QByteArray wording(200, 'x');
    for (int id = 0; text.size() < bytes; ++id)
        text += QString("  <text id=\"%1\" label=\"T%1\" src=\"/medias/texts/Midia_%1.png\" "
                        "wording=\"%2\" colorFont=\"#000000\" fontFamily=\"Arial\" "
                        "fontType=\"none\" fontSize=\"14\" textAlignment=\"left\"/>\n")
                    .arg(id)
                    .arg(QString::fromLatin1(wording))
                    .toUtf8();
    return text + " </scene>\n</foliomark>\n";
}

long peakRssMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

void compare(Document* doc, const QString& folder, const char* what, int base, int scenes1,
             int media1, int scenes4, int media4) {
    const double one = loadMs(doc, folder, project(scenes1, media1));
    const double four = loadMs(doc, folder, project(scenes4, media4));
    std::printf("%-7s %6d -> %6d: 1x %9.1f ms   4x %9.1f ms   ratio %.2f   (target < 5)\n", what,
                base, base * 4, one, four, four / one);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Definitions::setScreenSizeOverride(QSize(1600, 900));
    QTemporaryDir temp;
    Document* doc = Document::instance();
    doc->newProject();
    // 20 MB of text media first, while the peak memory of the process is theirs alone.
    const QByteArray text = textProject(20 * 1024 * 1024);
    const double textMs = loadMs(doc, temp.path(), text);
    std::printf("text    %6.1f MB: load %9.1f ms   peak memory %ld MB\n", text.size() / 1048576.0,
                textMs, peakRssMb());
    // 40,000 scenes with one picture each, against 10,000.
    compare(doc, temp.path(), "scenes", 10000, 10000, 10000, 40000, 40000);
    // 80,000 distinct pictures in 100 scenes, against 20,000.
    compare(doc, temp.path(), "media", 20000, 100, 20000, 100, 80000);
    doc->newProject();
    return 0;
}

// The project file under a coverage-guided fuzzer: each input is loaded as a project; a project
// that loads is saved, loaded again and saved again, and both saved files must hold the same.
// Built and run by scripts/fuzz.sh.

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"

#include <QApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Scene;
using selvora::project::OperationsFile;

namespace {

QTemporaryDir* folder = nullptr;

QString projectPath() {
    return folder->path() + QStringLiteral("/fuzz.svproj");
}

QString load(Document* doc) {
    doc->clearDocument();
    doc->setProjectDirectory(folder->path());
    doc->setProjectName(QStringLiteral("fuzz.svproj"));
    return OperationsFile(doc).loadProject();
}

QByteArray saved(Document* doc) {
    OperationsFile(doc).saveProject();
    QFile file(projectPath());
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

// The saved file with what it leaves open set aside: attribute order, the order of children
// inside a scene, the ids of groups and actions, which a load gives anew, and empty groups.
QString canonical(const QDomElement& element) {
    QStringList attributes;
    const QDomNamedNodeMap map = element.attributes();
    const bool numbered = element.tagName() == QLatin1String("sync") ||
                          element.parentNode().nodeName() == QLatin1String("sync");
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        if (!(numbered && attribute.name() == QLatin1String("id")))
            attributes << attribute.name() + '=' + attribute.value();
    }
    attributes.sort();
    QStringList children;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        // A group whose links had nowhere to lead is written empty and read as nothing.
        if (child.tagName() == QLatin1String("sync") && child.firstChildElement().isNull())
            continue;
        children << canonical(child);
    }
    if (element.tagName() != QLatin1String("foliomark"))
        children.sort();
    return element.tagName() + '[' + attributes.join(',') + "]{" + children.join(';') + '}';
}

QString canonical(const QByteArray& bytes) {
    QDomDocument doc;
    if (!doc.setContent(bytes))
        return QStringLiteral("not XML");
    return canonical(doc.documentElement());
}

void fail(const char* what, const QString& detail) {
    std::fprintf(stderr, "%s\n%s\n", what, detail.toUtf8().constData());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz_projectfile";
    static char* argv[] = {name, nullptr};
    // Never destroyed: the platform plugin frees its screen badly at exit, which the leak
    // checker would report; left alive, everything stays reachable.
    static QApplication* app = new QApplication(argc, argv);
    Q_UNUSED(app);
    Definitions::setScreenSizeOverride(QSize(1600, 900));
    folder = new QTemporaryDir;
    Document::instance()->newProject();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    {
        QFile file(projectPath());
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(reinterpret_cast<const char*>(data), qint64(size));
    }
    Document* doc = Document::instance();
    if (load(doc) == QLatin1String("noError")) {
        doc->openProject();
        // A little play: jumps at second 0 are taken from the event loop.
        if (Scene* scene = doc->getScene(-1))
            scene->playScene();
        QCoreApplication::processEvents();
        const QByteArray first = saved(doc);
        const QString report = load(doc);
        if (report != QLatin1String("noError"))
            fail("a saved project does not open again:", report + '\n' + first);
        const QByteArray second = saved(doc);
        if (canonical(first) != canonical(second))
            fail("a round trip changed the project:",
                 QString::fromUtf8(first) + "\n----\n" + QString::fromUtf8(second));
    }
    doc->clearDocument();
    return 0;
}

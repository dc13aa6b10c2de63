// Saving and loading a large project against the bare XML work of the same file.
//
// A project of 100 scenes, each with 40 media and about 200 syncs, is saved once (copying its
// pictures). Then, best of several runs:
//   load  = OperationsFile::loadProject      vs  QDomDocument::setContent + walk of all elements
//   save  = second OperationsFile::saveProject vs  building and serialising a DOM of that shape
// Targets: both ratios under 2.

#include "BenchProject.h"
#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"

#include <QApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>
#include <functional>

using benchproject::kScenes;
using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::project::OperationsFile;

namespace {

constexpr int kRuns = 5;

qint64 best(const std::function<void()>& before, const std::function<void()>& work) {
    return benchproject::fastestNs(kRuns, before, work);
}

// The file's elements in document order, to build a DOM of the same shape with no model.
struct Node {
    int depth;
    QString tag;
    QList<QPair<QString, QString>> attributes;
};

void flatten(const QDomElement& element, int depth, QList<Node>& nodes) {
    Node node{depth, element.tagName(), {}};
    const QDomNamedNodeMap map = element.attributes();
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        node.attributes << qMakePair(attribute.name(), attribute.value());
    }
    nodes << node;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        flatten(child, depth + 1, nodes);
}

int walk(const QDomElement& element) {
    int count = 1 + element.attributes().count();
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        count += walk(child);
    return count;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Definitions::setScreenSizeOverride(QSize(1600, 900));
    QTemporaryDir temp;
    Document* doc = Document::instance();
    const benchproject::SavedProject saved = benchproject::saveProject(doc, temp.path());
    const QString& file = saved.file;

    QDomDocument parsed;
    {
        QFile in(file);
        parsed.setContent(&in);
    }
    QList<Node> nodes;
    flatten(parsed.documentElement(), 0, nodes);
    int syncs = 0;
    for (const Node& node : nodes)
        syncs += node.depth == 3 ? 1 : 0;
    std::printf("project: %d scenes, %d elements, %d actions, %lld bytes\n", kScenes,
                int(nodes.size()), syncs, QFileInfo(file).size());

    // Second save of the same model, against building and writing the same tree.
    const qint64 save = best([] {}, [doc] { OperationsFile(doc).saveProject(); });
    const QString floorFile = temp.path() + "/floor.xml";
    const qint64 saveFloor =
        best([] {},
             [&nodes, &floorFile] {
                 QDomDocument dom(QStringLiteral("FOLIOMARK"));
                 QList<QDomElement> stack;
                 for (const Node& node : nodes) {
                     QDomElement element = dom.createElement(node.tag);
                     for (const auto& attribute : node.attributes)
                         element.setAttribute(attribute.first, attribute.second);
                     while (stack.size() > node.depth)
                         stack.removeLast();
                     if (stack.isEmpty())
                         dom.appendChild(element);
                     else
                         stack.last().appendChild(element);
                     stack << element;
                 }
                 QFile out(floorFile);
                 out.open(QIODevice::WriteOnly);
                 QTextStream stream(&out);
                 stream.setCodec("UTF-8");
                 stream << dom.toString(1);
             });

    // Load through the reader, against parsing and walking the same file.
    const qint64 load = best([doc, &saved] { benchproject::reopen(doc, saved); },
                             [doc] { OperationsFile(doc).loadProject(); });
    int walked = 0;
    const qint64 loadFloor = best([] {},
                                  [&file, &walked] {
                                      QDomDocument dom;
                                      QFile in(file);
                                      dom.setContent(&in);
                                      walked = walk(dom.documentElement());
                                  });

    std::printf("load : %8.1f ms   floor %8.1f ms   ratio %.2f   (target < 2)\n", load / 1e6,
                loadFloor / 1e6, double(load) / loadFloor);
    std::printf("save : %8.1f ms   floor %8.1f ms   ratio %.2f   (target < 2)\n", save / 1e6,
                saveFloor / 1e6, double(save) / saveFloor);
    return walked > 0 ? 0 : 1;
}

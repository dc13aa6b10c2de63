#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::project::OperationsFile;
using selvora::test::MediaFixtures;

namespace {

// The ways a file is damaged, each applied at a random place.
enum class Damage {
    truncate,
    dropAttribute,
    emptyAttribute,
    renameElement,
    flipBytes,
    extremeNumber
};
const Damage kDamages[] = {Damage::truncate,      Damage::dropAttribute, Damage::emptyAttribute,
                           Damage::renameElement, Damage::flipBytes,     Damage::extremeNumber};

const char* const kNames[] = {"scene",  "sync",     "meta", "start",     "set",     "stop",
                              "select", "goto",     "text", "shape",     "image",   "video",
                              "audio",  "property", "x",    "foliomark", "media_1", "scene_"};
const char* const kNumbers[] = {"2147483647", "99999999999",      "-1",      "1e308",
                                "nan",        "scene_2147483647", "media_-5"};

template <typename T, size_t N> const T& pick(QRandomGenerator& random, const T (&items)[N]) {
    return items[random.bounded(int(N))];
}

QByteArray damage(QByteArray data, Damage kind, QRandomGenerator& random) {
    static const QRegularExpression attribute(R"re(\s[A-Za-z-]+="[^"]*")re");
    static const QRegularExpression value(R"re("[^"]*")re");
    static const QRegularExpression tag(R"re(</?([A-Za-z_]+))re");
    auto matches = [&data](const QRegularExpression& re) {
        QList<QRegularExpressionMatch> found;
        auto it = re.globalMatch(QString::fromLatin1(data));
        while (it.hasNext())
            found << it.next();
        return found;
    };
    switch (kind) {
    case Damage::truncate:
        data.truncate(random.bounded(data.size() + 1));
        break;
    case Damage::dropAttribute:
    case Damage::emptyAttribute: {
        const auto found = matches(kind == Damage::dropAttribute ? attribute : value);
        if (found.isEmpty())
            break;
        const auto& m = found.at(random.bounded(found.size()));
        data.replace(m.capturedStart(), m.capturedLength(),
                     kind == Damage::dropAttribute ? QByteArray() : QByteArray("\"\""));
        break;
    }
    case Damage::renameElement: {
        const auto found = matches(tag);
        if (found.isEmpty())
            break;
        const auto& m = found.at(random.bounded(found.size()));
        data.replace(m.capturedStart(1), m.capturedLength(1), pick(random, kNames));
        break;
    }
    case Damage::flipBytes:
        for (int i = 1 + random.bounded(8); i > 0 && !data.isEmpty(); --i)
            data[random.bounded(data.size())] = char(random.bounded(256));
        break;
    case Damage::extremeNumber: {
        const auto found = matches(value);
        if (found.isEmpty())
            break;
        const auto& m = found.at(random.bounded(found.size()));
        data.replace(m.capturedStart(), m.capturedLength(),
                     QByteArray("\"") + pick(random, kNumbers) + "\"");
        break;
    }
    }
    return data;
}

} // namespace

// Damaged project files: every one ends in a report, none crashes, hangs or upsets a sanitizer.
class TestProjectFuzz : public QObject {
    Q_OBJECT
private slots:
    void damagedFilesEndInAReport() {
        QTemporaryDir temp;
        Document* doc = Document::instance();

        // Seeds: the hand-written files and one written by the program.
        QList<QByteArray> seeds;
        for (const char* name : {"project_oldids.svproj", "project_words.svproj",
                                 "project_height600.svproj", "project_noheight.svproj"})
            seeds << MediaFixtures::contents(MediaFixtures::dataPath(name));
        doc->newProject();
        {
            OperationsFile maker(doc);
            QVERIFY(maker.makeProject(temp.path() + "/semente"));
            Scene* scene = doc->getScene(-1);
            doc->createMedia(scene, MediaFixtures::makeImage(temp.path(), "f.png", QSize(6, 6)),
                             Definitions::kMediaType::image, "", "");
            doc->createMedia(scene, "", Definitions::kMediaType::shape, "12", "forma");
            doc->createMedia(scene, "", Definitions::kMediaType::text, "", "texto");
            doc->loadSync(scene, 1, true, Definitions::kSyncType::select, 3,
                          {{"key", "49"}, {"link", "0"}, {"timeEvent", "1"}});
            doc->loadSync(scene, 0, true, Definitions::kSyncType::stop, 8, {});
            maker.saveProject();
            seeds << MediaFixtures::contents(temp.path() + "/semente/semente.svproj");
        }

        const QString folder = temp.path() + "/mutante";
        QVERIFY(QDir().mkpath(folder + "/medias/images"));
        const QStringList reports{"noError", "openError", "noScenes"};
        QHash<QString, int> counts;
        QRandomGenerator random(20140307);
        const int rounds = 2400;
        for (int round = 0; round < rounds; ++round) {
            QByteArray data = seeds.at(round % seeds.size());
            for (int n = 1 + random.bounded(3); n > 0; --n)
                data = damage(data, pick(random, kDamages), random);
            QFile file(folder + "/mutante.svproj");
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(data);
            file.close();

            doc->clearDocument();
            doc->setProjectDirectory(folder);
            doc->setProjectName("mutante.svproj");
            OperationsFile operations(doc);
            const QString report = operations.loadProject();
            QVERIFY2(reports.contains(report), qPrintable(report));
            ++counts[report];
            if (report == "noError" && round % 8 == 0) {
                // What loaded can be played to second 0, saved and taken apart again.
                for (Scene* scene : doc->getSceneAllInOrder())
                    scene->resetExecuteSyncs();
                operations.saveProject();
                for (Scene* scene : doc->getSceneAllInOrder())
                    for (Media* media : scene->getAllMedias())
                        scene->removeMedia(media->getId());
            }
        }
        QVERIFY(counts.value("noError") > 0 && counts.value("openError") > 0);
        doc->newProject();
    }
};

SELVORA_TEST_MAIN(TestProjectFuzz)
#include "tst_projectfuzz.moc"

#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QDomElement>
#include <QImage>
#include <QTemporaryDir>

#include <memory>

using selvora::Definitions;
using selvora::buffer::Buffer;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using SyncType = Definitions::kSyncType;
using MediaType = Definitions::kMediaType;

namespace {

// A scene as the user sees it, in a form that compares: its fields, each medium with its look,
// and each sync with its id, kind, target, time and properties (a stop's own are not kept).
QStringList describe(Scene* scene) {
    if (!scene)
        return {"no scene"};
    QStringList lines;
    lines << QString("scene %1 '%2' total %3 order %4")
                 .arg(scene->getId())
                 .arg(scene->getLabel())
                 .arg(scene->getTotalTime())
                 .arg(scene->getOrder());
    for (Media* media : scene->getAllMedias()) {
        lines << QString("media %1 type %2 '%3' wording '%4' fill '%5' src '%6'")
                     .arg(media->getId())
                     .arg(int(media->getType()))
                     .arg(media->getLabel(), media->getWording(), media->getColorFill(),
                          media->getPathStart());
    }
    for (Sync* sync : scene->getAllSyncs()) {
        QHash<QString, QString> properties = sync->getProperties();
        if (sync->getType() == SyncType::stop)
            properties.clear();
        QStringList keys = properties.keys();
        keys.sort();
        QStringList values;
        for (const QString& key : keys)
            values << key + "=" + properties.value(key);
        lines << QString("sync %1 type %2 target %3 time %4 %5")
                     .arg(sync->getId())
                     .arg(int(sync->getType()))
                     .arg(sync->getMediaTarget())
                     .arg(sync->getTime())
                     .arg(values.join(","));
    }
    lines.sort();
    return lines;
}

QStringList syncTimes(Scene* scene, int target) {
    QStringList times;
    for (Sync* sync : scene->getAllSyncsMedia(target, true))
        times << QString("%1@%2").arg(int(sync->getType())).arg(sync->getTime());
    times.sort();
    return times;
}

} // namespace

// The history through the model, as the user's edits arrive: the list and its position, the
// records of scenes and media, the compound record of a start or stop moved past other syncs,
// and the silence of loading.
class TestBuffer : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    std::unique_ptr<Buffer> buffer;
    QTemporaryDir dir;
    QString picture;

    Scene* current() { return doc->getScene(-1); }

    int records() { return buffer->getRecords().size(); }

    QString newestLegend() {
        const QList<QDomElement> list = buffer->getRecords();
        return list.isEmpty() ? QString() : list.first().tagName();
    }

    // A medium set from the current second, as the canvas does after a move.
    Sync* moveTo(Scene* scene, Media* media, int time, const QString& left) {
        QHash<QString, QString> properties = media->getProperties();
        properties.insert("left", left);
        return doc->createSync(scene, media->getId(), true, SyncType::set, time, properties, -1);
    }

    Media* textAt(Scene* scene, int time, const QString& wording) {
        scene->setCurrentTime(time, false);
        return doc->createMedia(scene, "", MediaType::text, "", wording, -1);
    }

private slots:
    void initTestCase() {
        picture = selvora::test::MediaFixtures::makeImage(dir.path(), "figura.png", QSize(40, 30),
                                                          Qt::blue);
        QVERIFY(!picture.isEmpty());
    }

    void init() {
        doc = Document::instance();
        buffer.reset(new Buffer(doc));
        doc->newProject();
        current()->setTotalTime(60);
        QCOMPARE(records(), 1);
    }

    void cleanup() { buffer.reset(); }

    // A new edit after undos drops the redo side.
    void newEditDropsRedoSide() {
        Scene* scene = current();
        for (int i = 0; i < 6; ++i)
            scene->setLabel(QString("L%1").arg(i));
        for (int i = 0; i < 3; ++i)
            doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("L2"));
        scene->setLabel("Nova");
        QCOMPARE(buffer->getPosition(), 0);
        doc->redoAction();
        QCOMPARE(scene->getLabel(), QString("Nova"));
        doc->undoAction();
        doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("L1"));
    }

    // A group is one step: nested groups join the outer one, an empty group leaves nothing, a
    // stray close is harmless, and the oldest step leaves the full list whole.
    void groupsAreOneStep() {
        doc->newProject();
        Scene* scene = current();
        const int originalTime = scene->getTotalTime();
        scene->setLabel("A");
        doc->openHistoryGroup();
        doc->closeHistoryGroup();
        doc->closeHistoryGroup();
        QCOMPARE(records(), 1);

        doc->openHistoryGroup();
        scene->setLabel("B");
        doc->openHistoryGroup();
        scene->setTotalTime(90);
        doc->closeHistoryGroup();
        QVERIFY(buffer->isGroupOpen());
        scene->setLabel("C");
        doc->closeHistoryGroup();
        QVERIFY(!buffer->isGroupOpen());
        scene->setLabel("D");
        QCOMPARE(records(), 5);

        doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("C"));
        doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("A"));
        QCOMPARE(scene->getTotalTime(), originalTime);

        // Filling the list pushes the group out whole, never half of it.
        doc->redoAction();
        for (int i = 0; i < Buffer::kMaxRecords - 4; ++i)
            scene->setLabel(QString("L%1").arg(i));
        QCOMPARE(records(), Buffer::kMaxRecords);
        scene->setLabel("E");
        QCOMPARE(records(), Buffer::kMaxRecords);
        scene->setLabel("F");
        QCOMPARE(records(), Buffer::kMaxRecords - 2);
        for (int i = 0; i < Buffer::kMaxRecords; ++i)
            doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("C"));
        QCOMPARE(scene->getTotalTime(), 90);
    }

    void newProjectAndLoadingRecordNothing() {
        Scene* scene = current();
        textAt(scene, 0, "antes");
        scene->setLabel("Antes");
        QVERIFY(records() > 0);

        // A file is read while the history sleeps: clear, build, open.
        doc->clearDocument();
        QCOMPARE(records(), 0);
        Scene* loaded = doc->loadScene(3, 0, 0, 40, "Carregada");
        Media* media =
            doc->loadMedia(loaded, "", MediaType::text, 4, "Texto", {{"wording", "x"}}, "");
        doc->loadSync(loaded, 4, true, SyncType::start, 0, media->getProperties(), -1);
        Scene* created = doc->createScene(-1);
        doc->createMedia(created, "", MediaType::text, "", "durante", -1);
        media->setWording("outra");
        loaded->setLabel("Renomeada");
        doc->openProject();
        QCOMPARE(records(), 0);
        doc->undoAction();
        QCOMPARE(loaded->getLabel(), QString("Renomeada"));

        // Once open, the loaded objects are followed.
        media->setWording("depois");
        QCOMPARE(newestLegend(), QString("alterMediaProperties"));
        doc->undoAction();
        QCOMPARE(media->getWording(), QString("outra"));

        doc->newProject();
        QCOMPARE(records(), 0);
        QCOMPARE(buffer->getPosition(), 0);
        doc->undoAction();
        QCOMPARE(doc->getCountScenes(), 1);
    }

    void removedSceneComesBackWhole() {
        doc->createScene(-1);
        Scene* scene = doc->createScene(-1);
        const int id = scene->getId();
        doc->setCurrentScene(id, true);
        scene->setTotalTime(50);
        scene->setLabel("Experimento");
        Media* text = textAt(scene, 0, "Olá");
        scene->setCurrentTime(2, false);
        Media* image = doc->createMedia(scene, picture, MediaType::image, "", "", -1);
        QVERIFY(moveTo(scene, text, 4, "10"));
        QVERIFY(moveTo(scene, image, 6, "20"));
        QVERIFY(doc->createSync(scene, image->getId(), true, SyncType::stop, 30,
                                image->getProperties(), -1));
        QVERIFY(doc->createSync(scene, text->getId(), true, SyncType::select, 8,
                                {{"link", "0"}, {"key", "49"}}, -1));
        const QStringList before = describe(scene);
        const int order = scene->getOrder();

        doc->setCurrentScene(0, true);
        QVERIFY(doc->removeScene(id));
        QCOMPARE(newestLegend(), QString("removeScene"));

        doc->undoAction();
        Scene* back = doc->getSceneAll().value(id);
        QVERIFY(back);
        QCOMPARE(current(), back);
        QCOMPARE(back->getOrder(), order);
        QCOMPARE(describe(back), before);
    }

    void sceneTotalTimeAndLabel() {
        Scene* scene = current();
        scene->setTotalTime(80);
        scene->setCurrentTime(70, false);
        doc->undoAction();
        QCOMPARE(scene->getTotalTime(), 60);
        QCOMPARE(scene->getCurrentTime(), 60);
        doc->redoAction();
        QCOMPARE(scene->getTotalTime(), 80);

        // Two scenes with one label: the record names the first of them.
        Scene* other = doc->createScene(-1);
        other->setLabel("Igual");
        scene->setLabel("Igual");
        const QDomElement payload = buffer->getRecords().first().firstChildElement();
        QCOMPARE(payload.attribute("id").toInt(), scene->getId());
        QCOMPARE(payload.attribute("oldLabel"), QString("Cena 1"));
        doc->undoAction();
        QCOMPARE(scene->getLabel(), QString("Cena 1"));
        QCOMPARE(other->getLabel(), QString("Igual"));
    }

    void mediaRemovalIsOneRecord() {
        Scene* scene = current();
        Media* other = textAt(scene, 0, "fica");
        Media* media = textAt(scene, 5, "sai");
        const int id = media->getId();
        media->setLabel("Título");
        QVERIFY(moveTo(scene, media, 8, "30"));
        QVERIFY(doc->createSync(scene, id, true, SyncType::stop, 12, media->getProperties(), -1));
        QVERIFY(moveTo(scene, other, 9, "40"));
        const QStringList before = describe(scene);
        scene->setCurrentTime(20, false);
        const int count = records();

        QVERIFY(scene->removeMedia(id));
        QCOMPARE(records(), count + 1);

        doc->undoAction();
        QVERIFY(scene->hasMedia(id));
        QCOMPARE(scene->getCurrentTime(), 5); // the time of its start: it is visible
        QCOMPARE(describe(scene), before);

        doc->redoAction();
        QVERIFY(!scene->hasMedia(id));
        QCOMPARE(syncTimes(scene, id), QStringList());
    }

    void mediaProperties_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("recorded");
        auto row = [](const char* name, const char* key, const char* value, bool recorded) {
            QTest::newRow(name) << QString(key) << QString(value) << recorded;
        };
        row("wording", "wording", "novo texto", true);
        row("fill colour", "colorFill", "#00ff00", true);
        row("position alone", "left", "12", false);
    }

    void mediaProperties() {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(bool, recorded);
        Scene* scene = current();
        scene->setCurrentTime(0, false);
        Media* media = doc->createMedia(scene, "", MediaType::shape, "3", "velho", -1);
        const QString old = media->getProperties().value(key);
        const int count = records();
        media->setProperties({{key, value}});
        QCOMPARE(records(), count + (recorded ? 1 : 0));
        if (!recorded)
            return;
        scene->setCurrentTime(30, false);
        doc->undoAction();
        QCOMPARE(media->getProperties().value(key), old);
        QCOMPARE(scene->getCurrentTime(), 0);
        doc->redoAction();
        QCOMPARE(media->getProperties().value(key), value);
    }

    void syncRecords() {
        Scene* scene = current();
        Media* media = textAt(scene, 0, "a");
        Sync* set = moveTo(scene, media, 10, "25");
        QVERIFY(set);
        QCOMPARE(newestLegend(), QString("createSync"));
        const int id = set->getId();

        scene->updateSyncs(set, 10, 14);
        QCOMPARE(newestLegend(), QString("alterSyncTime"));
        set->setProperties({{"top", "33"}});
        QCOMPARE(newestLegend(), QString("alterSyncProperties"));
        doc->undoAction();
        QCOMPARE(set->getTop(), media->getProperties().value("top"));
        doc->undoAction();
        QCOMPARE(set->getTime(), 10);
        doc->undoAction();
        QVERIFY(!scene->hasSync(id));
        doc->redoAction();
        doc->redoAction();
        doc->redoAction();
        Sync* back = scene->getSync(id);
        QVERIFY(back);
        QCOMPARE(back->getTime(), 14);
        QCOMPARE(back->getTop(), QString("33"));

        scene->removeSync(id);
        QCOMPARE(newestLegend(), QString("removeSync"));
        doc->undoAction();
        QVERIFY(scene->hasSync(id));
    }

    void startOrStopPastOtherSyncs_data() {
        QTest::addColumn<bool>("hasStop");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("time");
        QTest::addColumn<QStringList>("left");
        QTest::addColumn<int>("removedTime");
        QTest::newRow("stop moved earlier")
            << true << int(SyncType::stop) << 5 << QStringList{"0@0", "1@3", "2@5", "3@0"} << 9;
        QTest::newRow("first stop inside the life")
            << false << int(SyncType::stop) << 5 << QStringList{"0@0", "1@3", "2@5", "3@0"} << 6;
        QTest::newRow("start moved later")
            << true << int(SyncType::start) << 7 << QStringList{"0@7", "1@9", "2@12", "3@0"} << 3;
    }

    void startOrStopPastOtherSyncs() {
        QFETCH(bool, hasStop);
        QFETCH(int, type);
        QFETCH(int, time);
        QFETCH(QStringList, left);
        QFETCH(int, removedTime);
        Scene* scene = current();
        Media* media = textAt(scene, 0, "a");
        const int id = media->getId();
        QVERIFY(moveTo(scene, media, 3, "11"));
        QVERIFY(moveTo(scene, media, 6, "22"));
        QVERIFY(moveTo(scene, media, 9, "33"));
        QVERIFY(doc->createSync(scene, id, true, SyncType::select, 0, {{"link", "0"}}, -1));
        if (hasStop)
            QVERIFY(
                doc->createSync(scene, id, true, SyncType::stop, 12, media->getProperties(), -1));
        const QStringList before = describe(scene);
        const int count = records();

        doc->createSync(scene, id, true, SyncType(type), time, media->getProperties(), -1);
        QCOMPARE(records(), count + 1);
        QCOMPARE(newestLegend(), QString("syncStartStopSpecialCondition"));
        QCOMPARE(syncTimes(scene, id), left);

        doc->undoAction();
        QCOMPARE(describe(scene), before);

        // The syncs it removed were left out of the history, and stay so.
        const QList<Sync*> sets = scene->getAllSyncs(id, removedTime, true);
        QCOMPARE(sets.size(), 1);
        const int count2 = records();
        scene->removeSyncObject(sets.first());
        QCOMPARE(records(), count2);
    }
};

SELVORA_TEST_MAIN(TestBuffer)
#include "tst_buffer.moc"

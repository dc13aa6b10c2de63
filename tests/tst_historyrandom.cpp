#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QImage>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>

#include <functional>
#include <memory>

using selvora::Definitions;
using selvora::buffer::Buffer;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using SyncType = Definitions::kSyncType;
using MediaType = Definitions::kMediaType;

// Long runs of edits as a user makes them, mixed with undos and redos: the history must never
// bring the model into a state it could not reach by itself.
class TestHistoryRandom : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    std::unique_ptr<Buffer> buffer;
    QTemporaryDir dir;
    QString picture;
    QRandomGenerator random;

    int below(int bound) { return bound > 0 ? int(random.bounded(bound)) : 0; }

    template <typename T> T* pick(const QList<T*>& list) {
        return list.isEmpty() ? nullptr : list.at(below(list.size()));
    }

    Scene* scene() {
        if (!doc->getScene(-1) && doc->getCountScenes() > 0)
            doc->setCurrentScene(doc->getSceneAllInOrder().first()->getId(), true);
        return doc->getScene(-1);
    }

    QList<Media*> mediasOf(Scene* s) {
        QList<Media*> medias = s->getAllMedias();
        std::sort(medias.begin(), medias.end(),
                  [](Media* a, Media* b) { return a->getId() < b->getId(); });
        return medias;
    }

    QList<Sync*> syncsOf(Scene* s, std::function<bool(Sync*)> keep) {
        QList<Sync*> result;
        for (Sync* sync : s->getAllSyncs()) {
            if (keep(sync))
                result.append(sync);
        }
        std::sort(result.begin(), result.end(), [](Sync* a, Sync* b) {
            return a->getTime() != b->getTime() ? a->getTime() < b->getTime()
                                                : a->getId() < b->getId();
        });
        return result;
    }

    // The span in which the timing dialogs accept a new start or stop of a medium.
    int startOf(Scene* s, Media* m) {
        const Sync* start = s->getSync(SyncType::start, m->getId(), true);
        return start ? start->getTime() : 0;
    }
    int stopOf(Scene* s, Media* m) {
        const Sync* stop = s->getSync(SyncType::stop, m->getId(), true);
        return stop ? stop->getTime() : s->getTotalTime() + 1;
    }

    void edit(Scene* s) {
        Media* media = pick(mediasOf(s));
        const int time = below(s->getTotalTime() + 1);
        switch (below(20)) {
        case 0:
        case 1:
        case 2: {
            static const MediaType types[] = {MediaType::text, MediaType::shape, MediaType::image,
                                              MediaType::audio, MediaType::video};
            const MediaType type = types[below(5)];
            s->setCurrentTime(time, false);
            doc->createMedia(s, type == MediaType::image ? picture : QString(), type,
                             QString::number(below(52)), QString("texto %1").arg(below(9)), -1);
            break;
        }
        case 3:
            if (media)
                s->removeMedia(media->getId());
            break;
        case 4:
        case 5:
        case 6:
            if (media) {
                QHash<QString, QString> properties = media->getProperties();
                properties.insert("left", QString::number(below(90)));
                properties.insert("transparency", QString::number(below(100)));
                doc->createSync(s, media->getId(), true, SyncType::set, time, properties, -1);
            }
            break;
        case 7:
            if (media && stopOf(s, media) > startOf(s, media) + 1) {
                const int start =
                    startOf(s, media) + 1 +
                    below(qMin(stopOf(s, media), s->getTotalTime()) - startOf(s, media));
                doc->createSync(s, media->getId(), true, SyncType::stop, start,
                                media->getProperties(), -1);
            }
            break;
        case 8:
            if (media) {
                const int start = below(stopOf(s, media));
                doc->createSync(s, media->getId(), true, SyncType::start, start,
                                media->getProperties(), -1);
            }
            break;
        case 9:
            if (media) {
                const Scene* target = pick(doc->getSceneAll().values());
                doc->createSync(s, media->getId(), true, SyncType::select, 0,
                                {{"link", QString::number(target->getId())}, {"key", "49"}}, -1);
            }
            break;
        case 10:
            doc->createSync(s, -1, true, SyncType::goTo, time,
                            {{"link", QString::number(pick(doc->getSceneAll().values())->getId())},
                             {"timeEvent", "0"}},
                            -1);
            break;
        case 11:
            if (Sync* sync =
                    pick(syncsOf(s, [](Sync* x) { return x->getType() != SyncType::start; })))
                s->removeSyncObject(sync);
            break;
        case 12:
            if (Sync* sync =
                    pick(syncsOf(s, [](Sync* x) { return x->getType() == SyncType::set; }))) {
                Media* target = s->hasMedia(sync->getMediaTarget())
                                    ? s->getMedia(sync->getMediaTarget())
                                    : nullptr;
                if (target && stopOf(s, target) > startOf(s, target))
                    s->updateSyncs(sync, sync->getTime(),
                                   startOf(s, target) +
                                       below(stopOf(s, target) - startOf(s, target)));
            }
            break;
        case 13:
            if (media)
                media->setWording(QString("palavra %1").arg(below(20)));
            break;
        case 14:
            if (media)
                media->setProperties(
                    {{"colorFill", QString("#%1").arg(below(0xffffff), 6, 16, QChar('0'))},
                     {"fontSize", QString::number(8 + below(30))}});
            break;
        case 15:
            doc->setCurrentScene(doc->createScene(-1)->getId(), true);
            break;
        case 16:
            if (doc->getCountScenes() > 1) {
                const int id = s->getId();
                for (Scene* other : doc->getSceneAll()) {
                    if (other != s) {
                        doc->setCurrentScene(other->getId(), true);
                        break;
                    }
                }
                doc->removeScene(id);
            }
            break;
        case 17:
            s->setTotalTime(30 + below(40));
            break;
        case 18:
            if (below(2))
                doc->sendSceneUp(s->getId());
            else
                doc->sendSceneDown(s->getId());
            break;
        default:
            s->setCurrentTime(time, false);
            s->resetExecuteSyncs();
            break;
        }
    }

    void checkInvariants(int step) {
        const QByteArray where = QByteArray("step ") + QByteArray::number(step);
        QSet<int> mediaIds;
        for (auto it = doc->getSceneAll().constBegin(); it != doc->getSceneAll().constEnd(); ++it) {
            Scene* s = it.value();
            QVERIFY2(it.key() == s->getId(), where);
            int videos = 0;
            for (Media* media : s->getAllMedias()) {
                const int id = media->getId();
                QVERIFY2(!mediaIds.contains(id), where + " media id twice");
                mediaIds.insert(id);
                QVERIFY2(s->getMedia(id) == media, where);
                int starts = 0;
                for (Sync* sync : s->getAllSyncsMedia(id, true))
                    starts += sync->getType() == SyncType::start ? 1 : 0;
                QVERIFY2(starts == 1, where + " starts of media " + QByteArray::number(id) + ": " +
                                          QByteArray::number(starts));
                videos += media->getType() == MediaType::video ? 1 : 0;
            }
            QVERIFY2(videos <= 1, where);
        }
        QVERIFY2(buffer->getRecords().size() <= Buffer::kMaxRecords, where);
        QVERIFY2(buffer->getPosition() >= 0, where);
        QVERIFY2(buffer->getPosition() <= buffer->getRecords().size(), where);
    }

private slots:
    void initTestCase() {
        picture = selvora::test::MediaFixtures::makeImage(dir.path(), "quadro.png", QSize(64, 48),
                                                          Qt::darkGreen);
        QVERIFY(!picture.isEmpty());
    }

    void init() {
        doc = Document::instance();
        buffer.reset(new Buffer(doc));
        doc->newProject();
        doc->getScene(-1)->setTotalTime(60);
    }

    void cleanup() { buffer.reset(); }

    void editsUndosAndRedos_data() {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<int>("steps");
        for (quint32 seed : {1u, 42u, 31337u})
            QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed << 400;
    }

    void editsUndosAndRedos() {
        QFETCH(quint32, seed);
        QFETCH(int, steps);
        random.seed(seed);
        int replays = 0;
        for (int step = 0; step < steps; ++step) {
            const int position = buffer->getPosition();
            const int roll = below(100);
            if (roll < 22) {
                // Undo runs, as a user looking for an older state.
                for (int i = below(4); i >= 0; --i)
                    doc->undoAction();
            } else if (roll < 36) {
                for (int i = below(3); i >= 0; --i)
                    doc->redoAction();
            } else if (roll == 36 && step % 5 == 0) {
                doc->newProject();
                doc->getScene(-1)->setTotalTime(60);
            } else if (Scene* s = scene()) {
                edit(s);
            }
            replays += buffer->getPosition() != position && roll < 36 ? 1 : 0;
            checkInvariants(step);
            if (QTest::currentTestFailed())
                return;
        }
        // The run did reach the history.
        QVERIFY(replays > steps / 10);
        // The whole history can be walked both ways to its ends.
        for (int i = 0; i <= Buffer::kMaxRecords; ++i)
            doc->undoAction();
        checkInvariants(steps);
        for (int i = 0; i <= Buffer::kMaxRecords; ++i)
            doc->redoAction();
        checkInvariants(steps + 1);
        QCOMPARE(buffer->getPosition(), 0);
    }
};

SELVORA_TEST_MAIN(TestHistoryRandom)
#include "tst_historyrandom.moc"

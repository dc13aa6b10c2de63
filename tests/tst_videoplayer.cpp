#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/MainVideo.h"
#include "spatialview/SpatialView.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"
#include "support/WindowBench.h"

#include <QMediaPlayer>
#include <QTemporaryDir>

#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Scene;
using spatialview::SpatialView;

// The scene's clock leads and the player of its main video follows within a second.
class TestVideoPlayer : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<WindowBench> bench;
    document::Document* doc = nullptr;

    SpatialView* canvas() const { return bench->canvas(); }
    Scene* scene() const { return doc->getScene(-1); }

    // The two-second clip in the current scene, from the current second; its player loaded.
    QMediaPlayer* insertClip() {
        doc->createMedia(scene(), MediaFixtures::videoPath(), Definitions::kMediaType::video,
                         QString(), QString());
        QMediaPlayer* player = canvas()->mediaPlayer();
        if (player && !QTest::qWaitFor([player] { return player->duration() > 0; }, 10000))
            return nullptr;
        return player;
    }

private slots:
    void initTestCase() {
        bench.reset(new WindowBench());
        doc = bench->document();
        QVERIFY(canvas());
    }
    void init() { doc->newProject(); }
    void cleanupTestCase() { bench.reset(); }

    void followsTheClockAndRestsOnTheLastFrame() {
        scene()->setTotalTime(5);
        QMediaPlayer* player = insertClip();
        QVERIFY(player);
        const qint64 duration = player->duration();
        QVERIFY(qAbs(duration - 2000) < 200);

        QSignalSpy ticks(scene(), &Scene::currentTime);
        scene()->playScene();
        QTRY_COMPARE_WITH_TIMEOUT(player->state(), QMediaPlayer::PlayingState, 5000);
        for (int second = 1; second <= 4; ++second) {
            QVERIFY(ticks.wait(5000));
            QCOMPARE(ticks.last().first().toInt(), second);
            const qint64 position = player->position();
            if (second * 1000 < duration) {
                QVERIFY(qAbs(position / 1000 - second) <= 1);
            } else {
                // Run out: resting 50 ms before the end, showing the last frame.
                QTRY_VERIFY_WITH_TIMEOUT(qAbs(player->position() - (duration - 50)) <= 100, 5000);
                QTRY_COMPARE_WITH_TIMEOUT(player->state(), QMediaPlayer::PausedState, 5000);
                QVERIFY(!canvas()->getMainVideo()->isUnplayable());
            }
        }
        scene()->pauseScene();
    }

    void waitsForTheVideosStart() {
        scene()->setTotalTime(4);
        scene()->setCurrentTime(2, false);
        QMediaPlayer* player = insertClip();
        QVERIFY(player);
        scene()->setCurrentTime(0, false);
        scene()->resetExecuteSyncs();

        QSignalSpy ticks(scene(), &Scene::currentTime);
        scene()->playScene();
        QVERIFY(ticks.wait(5000));
        QVERIFY(player->state() != QMediaPlayer::PlayingState);
        QVERIFY(!canvas()->getMainVideo()->isVisible());

        QVERIFY(ticks.wait(5000)); // second 2: the video starts, and the player with it
        QVERIFY(canvas()->getMainVideo()->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(player->state(), QMediaPlayer::PlayingState, 5000);
    }

    // A file the player cannot read stands on the canvas as a placeholder, not as a hole.
    void marksAnUnplayableVideo() {
        QTemporaryDir folder;
        const QString path = folder.filePath("ruim.mp4");
        QFile junk(path);
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write(QByteArray(4096, 'x'));
        junk.close();
        doc->createMedia(scene(), path, Definitions::kMediaType::video, QString(), QString());
        QVERIFY(canvas()->getMainVideo());
        QTRY_VERIFY_WITH_TIMEOUT(canvas()->getMainVideo()->isUnplayable(), 10000);
    }
};

SELVORA_TEST_MAIN(TestVideoPlayer)
#include "tst_videoplayer.moc"

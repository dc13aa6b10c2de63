#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "spatialview/ImageItem.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"
#include "wizards/Quiz.h"
#include "wizards/QuizView.h"

#include <QAction>
#include <QComboBox>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextEdit>

#include <algorithm>
#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using spatialview::SpatialView;
using wizards::Quiz;
using wizards::QuizView;
using SyncType = Definitions::kSyncType;

namespace {

// A scene as a line: label, total time, and its gotos as "second>scene@second" in time order.
QString describe(const Scene* scene) {
    QStringList gotos;
    QList<Sync*> syncs = scene->getAllSyncs(SyncType::goTo);
    std::sort(syncs.begin(), syncs.end(),
              [](const Sync* a, const Sync* b) { return a->getTime() < b->getTime(); });
    for (const Sync* sync : syncs)
        gotos
            << QString("%1>%2@%3").arg(sync->getTime()).arg(sync->getLink(), sync->getTimeEvent());
    return QString("%1|%2|%3")
        .arg(scene->getLabel())
        .arg(scene->getTotalTime())
        .arg(gotos.join(' '));
}

// The answer links of a question scene as (media, second of the feedback scene entered).
QList<QPair<Media*, int>> answers(Scene* scene, int feedbackId) {
    QList<QPair<Media*, int>> links;
    for (Media* media : scene->getAllMediasOrderLayer()) {
        for (const Sync* sync : scene->getAllSyncsMedia(media->getId(), true)) {
            if (sync->getType() == SyncType::select && sync->getLink().toInt() == feedbackId)
                links << qMakePair(media, sync->getTimeEvent().toInt());
        }
    }
    return links;
}

} // namespace

class TestQuiz : public CanvasTest {
    Q_OBJECT

    Scene* current() const { return doc->getScene(-1); }
    SpatialView* canvas() const { return group->getCurrentView(); }
    bool shown(const Media* media) const {
        const auto* item = canvas()->getItem(SpatialView::mediaKey(media->getId()));
        return item && item->isVisible();
    }
    Media* mediaLabelled(Scene* scene, const QString& label) const {
        for (Media* media : scene->getAllMedias()) {
            if (media->getLabel() == label)
                return media;
        }
        return nullptr;
    }

    // The wizard as the menu opens it.
    Quiz* openFromMenu() {
        QAction* action = MenuPicker::findAction(bench->window(), "Inserir Template");
        if (!action || !action->isEnabled())
            return nullptr;
        const QList<Quiz*> before = group->findChildren<Quiz*>();
        action->trigger();
        const QList<Quiz*> after = group->findChildren<Quiz*>();
        for (Quiz* quiz : after) {
            if (!before.contains(quiz))
                return quiz;
        }
        return nullptr;
    }
    static void configure(Quiz* quiz, int questions, int options, const QString& time) {
        quiz->getQuestionsBox()->setCurrentText(QString::number(questions));
        quiz->getOptionsBox()->setCurrentText(QString::number(options));
        quiz->getTimeEdit()->setText(time);
    }
    static void finish(Quiz* quiz) {
        while (quiz->currentId() != Quiz::wrongPage)
            quiz->next();
        quiz->button(QWizard::FinishButton)->click();
    }
    // Ticks of the scene's clock, as its timer gives them.
    static void tick(Scene* scene, int seconds) {
        for (int i = 0; i < seconds && scene->getStatusPlayer() == Definitions::kPlayerStatus::play;
             ++i)
            scene->iteratorTime();
    }
    void click(const Media* media) {
        const auto* item = canvas()->getItem(SpatialView::mediaKey(media->getId()));
        QVERIFY(item && item->isVisible());
        // As a hand's click leaves it: the keys on the canvas. A jump keeps them on the canvas
        // of the scene it enters.
        canvas()->getGraphicsView()->setFocus(Qt::MouseFocusReason);
        ViewInput::click(canvas()->getGraphicsView(),
                         QRectF(item->scenePos(), item->getRect().size()).center());
    }

private slots:
    void initTestCase() { QVERIFY(openBench()); }
    void init() { QVERIFY(newProject()); }
    void cleanup() {
        for (Scene* scene : doc->getSceneAll())
            scene->pauseScene();
        qDeleteAll(group->findChildren<Quiz*>());
    }
    void cleanupTestCase() { bench.reset(); }

    void wizardMakesTheScenesAndLinks_data() {
        QTest::addColumn<int>("questions");
        QTest::addColumn<int>("options");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QStringList>("scenes"); // in scene order
        // A time of zero is no limit: the question waits for its answer, with no time-out.
        QTest::newRow("defaults") << 1 << 2 << "00:00:00"
                                  << QStringList{"Pergunta 1|0|", "Feedback|10|5>2@0 10>0@0",
                                                 "Cena 3|0|"};
        QTest::newRow("N = 3, T = 60")
            << 3 << 2 << "00:01:00"
            << QStringList{"Pergunta 1|60|60>3@15", "Pergunta 2|60|60>3@20",
                           "Pergunta 3|60|60>3@25",
                           "Feedback|30|5>1@0 10>2@0 15>4@0 20>0@0 25>1@0 30>2@0", "Cena 5|0|"};
        QTest::newRow("01:30:15") << 1 << 3 << "01:30:15"
                                  << QStringList{"Pergunta 1|5415|5415>1@5",
                                                 "Feedback|10|5>2@0 10>0@0", "Cena 3|0|"};
    }
    void wizardMakesTheScenesAndLinks() {
        QFETCH(int, questions);
        QFETCH(int, options);
        QFETCH(QString, time);
        QFETCH(QStringList, scenes);
        Quiz* quiz = openFromMenu();
        QVERIFY(quiz);
        configure(quiz, questions, options, time);
        finish(quiz);
        QVERIFY(!quiz->isVisible());
        QStringList actual;
        for (const Scene* scene : doc->getSceneAllInOrder())
            actual << describe(scene);
        QCOMPARE(actual, scenes);
        QCOMPARE(current(), quiz->getFinalScene());

        // Each question: its text, and one button per option, one of them right.
        const int feedback = questions;
        for (int i = 1; i <= questions; ++i) {
            Scene* scene = doc->getScene(i - 1);
            const Media* text = mediaLabelled(scene, QString("Questão %1").arg(i));
            QVERIFY(text);
            QCOMPARE(text->getWording(), QString("Pergunta %1").arg(i));
            const QList<QPair<Media*, int>> links = answers(scene, feedback);
            QCOMPARE(links.size(), options);
            // One right answer, the others to the wrong slot; all on the canvas.
            int right = 0;
            for (const auto& link : links) {
                QVERIFY(link.first->getTop().toDouble() + link.first->getHeight().toDouble() <=
                        100);
                right += link.second == 5 * (i - 1);
                QVERIFY(link.second == 5 * (i - 1) || link.second == 5 * (questions + i - 1));
            }
            QCOMPARE(right, 1);
        }
        // No picture was chosen: a caption in each slot says the outcome.
        Scene* timeline = doc->getScene(feedback);
        const Media* rightPicture = mediaLabelled(timeline, "Imagem de acerto");
        const Media* wrongPicture = mediaLabelled(timeline, "Imagem de erro");
        QVERIFY(rightPicture && wrongPicture);
        QCOMPARE(rightPicture->getWording(), QString("Resposta certa!"));
        QCOMPARE(wrongPicture->getWording(), QString("Resposta errada!"));
        QCOMPARE(timeline->getSync(SyncType::start, wrongPicture->getId(), true)->getTime(),
                 5 * questions);
        QCOMPARE(timeline->getSync(SyncType::stop, wrongPicture->getId(), true)->getTime(),
                 10 * questions);
    }

    // Played: answers and time-outs enter their slots, whose pictures show, and leave them for
    // the next question, the same question again, or the end.
    void aPlayedQuizRunsThroughItsSlots() {
        const QString picture =
            MediaFixtures::makeImage(files->path(), "certo.png", QSize(200, 100), Qt::green);
        Quiz* quiz = openFromMenu();
        QVERIFY(quiz);
        configure(quiz, 2, 3, "00:00:20");
        quiz->next();
        const QList<QuizView*> views = quiz->getQuestionViews();
        QCOMPARE(views.size(), 2);
        views[0]->setRightAnswer(2);
        views[1]->setRightAnswer(1);
        quiz->next();
        QGraphicsView* previewView = quiz->getRightScene()->views().value(0);
        ModalAnswerer answerer;
        answerer.answerFileDialog(
            MediaFixtures::makeImage(files->path(), "antes.png", QSize(60, 60), Qt::blue));
        ViewInput::click(previewView, quiz->getRightScene()->sceneRect().center());
        QVERIFY(answerer.waitAllAnswered());
        // Chosen again, with the button now in its corner: the new picture replaces the old.
        answerer.answerFileDialog(picture);
        ViewInput::click(
            previewView,
            quiz->getRightButton()->graphicsProxyWidget()->sceneBoundingRect().center());
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(quiz->getRightImage(), picture);
        const spatialview::ImageItem* preview = quiz->getRightItem();
        QVERIFY(preview && preview->hasPicture());
        QCOMPARE(preview->getRect().size(), QSizeF(100, 50)); // half of its size on the canvas
        finish(quiz);

        Scene* first = doc->getScene(0);
        Scene* second = doc->getScene(1);
        Scene* feedback = doc->getScene(2);
        const Media* rightPicture = mediaLabelled(feedback, "Imagem de acerto");
        const Media* wrongPicture = mediaLabelled(feedback, "Imagem de erro");
        QVERIFY(rightPicture && wrongPicture);
        // Twice the preview, in percent of the canvas.
        const double width = Definitions::getViewWidth();
        QVERIFY(qAbs(rightPicture->getWidthPx(width) - 200) <= 1);
        QVERIFY(qAbs(rightPicture->getLeftPx(width) - 2 * preview->scenePos().x()) <= 1);
        const QList<QPair<Media*, int>> firstAnswers = answers(first, 2);
        QCOMPARE(firstAnswers.at(0).second, 10); // wrong

        QApplication::setActiveWindow(bench->window());
        QTRY_VERIFY(bench->window()->isActiveWindow());

        // A wrong answer to question 1: the wrong picture for five seconds, then question 1.
        QVERIFY(doc->setCurrentSceneTime(first->getId(), 0, true));
        click(firstAnswers.at(0).first);
        QTRY_COMPARE(current(), feedback);
        QCOMPARE(feedback->getCurrentTime(), 10);
        QVERIFY(shown(wrongPicture));
        QVERIFY(!shown(rightPicture));
        tick(feedback, 4);
        QCOMPARE(current(), feedback);
        tick(feedback, 1);
        QTRY_COMPARE(current(), first);

        // Question 2 runs out of time: its wrong slot, then question 2 again.
        QVERIFY(doc->setCurrentSceneTime(second->getId(), 0, true));
        tick(second, 20);
        QTRY_COMPARE(current(), feedback);
        QCOMPARE(feedback->getCurrentTime(), 15);
        QVERIFY(shown(wrongPicture));
        tick(feedback, 5);
        QTRY_COMPARE(current(), second);
    }

    // The history takes the quiz back step by step: the last step is the wrong picture's end.
    void oneUndoTakesBackTheLastStep() {
        Quiz* quiz = openFromMenu();
        QVERIFY(quiz);
        configure(quiz, 1, 2, "00:00:10");
        finish(quiz);
        Scene* feedback = doc->getScene(QStringLiteral("Feedback"));
        const Media* wrongPicture = mediaLabelled(feedback, "Imagem de erro");
        QVERIFY(feedback->hasSync(SyncType::stop, wrongPicture->getId(), true));
        doc->undoAction();
        QVERIFY(!feedback->hasSync(SyncType::stop, wrongPicture->getId(), true));
        doc->redoAction();
        QVERIFY(feedback->hasSync(SyncType::stop, wrongPicture->getId(), true));
        for (int i = 0; i < 30; ++i)
            doc->undoAction();
        QVERIFY(doc->getCountScenes() >= 1);
    }
};

SELVORA_TEST_MAIN(TestQuiz)
#include "tst_quiz.moc"

#include "document/Document.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "support/TestMain.h"
#include "wizards/TemplateWizard.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

using namespace selvora;
using document::Document;
using document::Scene;
using document::Sync;
using document::Template;
using wizards::TemplateWizard;
using SyncType = Definitions::kSyncType;

// The wizard that relates the first two templates of a scene in time.
class TestTemplateWizard : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Scene* scene = nullptr;
    Template* a = nullptr;
    Template* b = nullptr;

    Template* place(Definitions::kLayoutType layout) {
        Template* templ = doc->createTemplate(scene, static_cast<int>(layout) + 1);
        doc->insertStandardLayouts(templ, layout);
        doc->insertTemplateScene(templ, scene);
        return templ;
    }
    int timeOf(SyncType type, const Template* templ) const {
        const Sync* sync = scene->getSync(type, templ->getId(), false);
        return sync ? sync->getTime() : -1;
    }

    QStringList state() const {
        QStringList lines;
        for (const Sync* sync : scene->getAllSyncs())
            lines << QString("%1 %2 %3 %4")
                         .arg(int(sync->getType()))
                         .arg(sync->getMediaTarget())
                         .arg(sync->getIsMedia())
                         .arg(sync->getTime());
        std::sort(lines.begin(), lines.end());
        lines << QString("total %1").arg(scene->getTotalTime());
        lines << QString("relations %1 %2")
                     .arg(a->getRelationsTemplations().size())
                     .arg(b->getRelationsTemplations().size());
        return lines;
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        a = place(Definitions::kLayoutType::layout1);
        b = place(Definitions::kLayoutType::layout2);
    }

    void syncsOfEachRelation_data() {
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("startOfB");
        QTest::addColumn<int>("startRelation");
        QTest::addColumn<int>("startInterval");
        QTest::addColumn<int>("endRelation");
        QTest::addColumn<int>("endInterval");
        // total, start A, start B, stop A, stop B afterwards; -1: no such sync
        QTest::addColumn<QList<int>>("expected");
        QTest::addRow("equal both") << 10 << 0 << 3 << 1 << 3 << 1 << QList<int>{10, 0, 0, 10, 10};
        QTest::addRow("A before B in an empty scene")
            << 0 << 0 << 1 << 5 << 0 << 1 << QList<int>{6, 0, 5, 6, 6};
        QTest::addRow("A after B") << 10 << 0 << 2 << 4 << 3 << 1 << QList<int>{10, 4, 0, 10, 10};
        QTest::addRow("A ends before B")
            << 10 << 0 << 3 << 1 << 1 << 3 << QList<int>{10, 0, 0, 7, 10};
        QTest::addRow("A ends after B, B started late")
            << 10 << 8 << 4 << 1 << 2 << 3 << QList<int>{12, 0, 8, 12, 9};
        QTest::addRow("with the end and the start: no syncs")
            << 10 << 0 << 4 << 2 << 5 << 2 << QList<int>{10, 0, 0, -1, -1};
    }
    void syncsOfEachRelation() {
        QFETCH(int, total);
        QFETCH(int, startOfB);
        QFETCH(int, startRelation);
        QFETCH(int, startInterval);
        QFETCH(int, endRelation);
        QFETCH(int, endInterval);
        QFETCH(QList<int>, expected);
        scene->setTotalTime(total);
        if (startOfB)
            doc->createSync(scene, b->getId(), false, SyncType::start, startOfB, -1);
        TemplateWizard wizard(doc, nullptr);
        const auto& start = wizard.startSentence();
        const auto& end = wizard.endSentence();
        start.relation->setCurrentIndex(startRelation);
        start.interval->setValue(startInterval);
        end.relation->setCurrentIndex(endRelation);
        end.interval->setValue(endInterval);
        wizard.accept();
        const QList<int> seen{scene->getTotalTime(), timeOf(SyncType::start, a),
                              timeOf(SyncType::start, b), timeOf(SyncType::stop, a),
                              timeOf(SyncType::stop, b)};
        QCOMPARE(seen, expected);
        QCOMPARE(a->getRelationsTemplations(), QList<int>{b->getId()});
        QCOMPARE(b->getRelationsTemplations(), QList<int>{a->getId()});
    }

    // Cancel, after choosing everything, leaves the scene as the placing left it.
    void cancelChangesNothing() {
        scene->setTotalTime(10);
        const QStringList before = state();
        TemplateWizard wizard(doc, nullptr);
        wizard.show();
        wizard.startSentence().relation->setCurrentIndex(1);
        wizard.startSentence().interval->setValue(30);
        wizard.next();
        wizard.endSentence().relation->setCurrentIndex(2);
        wizard.button(QWizard::CancelButton)->click();
        QVERIFY(!wizard.isVisible());
        QCOMPARE(state(), before);
    }

    // The sentence reads as it is built: A and B never the same, both pages on the same pair,
    // the interval offered only where it counts.
    void sentenceFollowsTheChoices() {
        TemplateWizard wizard(doc, nullptr);
        const auto& start = wizard.startSentence();
        const auto& end = wizard.endSentence();
        QCOMPARE(wizard.windowTitle(), QString("Template"));
        QCOMPARE(start.nameA->text(), QString("O %1 vai inicar ").arg(a->getLabel()));
        QCOMPARE(start.relation->itemText(4), QString("Com o fim do"));

        start.templateA->setCurrentIndex(1);
        QCOMPARE(start.templateB->currentIndex(), 0);
        QCOMPARE(start.nameA->text(), QString("O %1 vai inicar ").arg(b->getLabel()));
        QCOMPARE(end.nameB->text(), a->getLabel());

        QVERIFY(!start.interval->isEnabled());
        start.relation->setCurrentIndex(4);
        QVERIFY(start.interval->isEnabled());
        QCOMPARE(start.intervalLabel->text(), QString("1 segundo"));
        start.interval->setValue(2);
        QCOMPARE(start.intervalLabel->text(), QString("2 segundos"));
        start.relation->setCurrentIndex(3);
        QVERIFY(!start.interval->isEnabled());
        QVERIFY(start.intervalLabel->isHidden());
    }
};

SELVORA_TEST_MAIN(TestTemplateWizard)
#include "tst_templatewizard.moc"

#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/NumberForm.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "feature/Feature.h"
#include "support/TestMain.h"
#include "support/WindowBench.h"

#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include <memory>

using namespace selvora;
using document::Media;
using document::Scene;
using document::Sync;
using feature::Feature;
using test::WindowBench;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

// Where a typed value must land: on the media alone, on the media and a "set" sync at the
// current second, or on the media's link.
enum Effect { mediaOnly, setSync, linkSync };

constexpr int kSecond = 5;

// The font that a "fontFamily" value names, or the value itself for any other key.
QString comparable(const QString& key, const QString& value) {
    if (key != "fontFamily")
        return value;
    QFont font;
    font.fromString(value);
    return font.family();
}

} // namespace

class TestFeature : public QObject {
    Q_OBJECT
private:
    document::Document* doc = nullptr;
    std::unique_ptr<QWidget> window;
    Feature* panel = nullptr;
    Scene* scene = nullptr;
    Media* shape = nullptr;
    Scene* other = nullptr;

    template <typename T> T* control(const QString& name) const {
        T* widget = panel->findChild<T*>(name);
        if (!widget)
            qWarning("no control named %s", qPrintable(name));
        return widget;
    }

    // Types into a field as a user does, commits it, and shows its tab first.
    void enter(const QString& field, const QString& input) {
        QWidget* widget = control<QWidget>(field);
        QVERIFY(widget);
        for (int tab = 0; tab < panel->tabs()->count(); ++tab) {
            if (panel->tabs()->widget(tab)->isAncestorOf(widget))
                panel->tabs()->setCurrentIndex(tab);
        }
        widget->setFocus();
        if (input == "click") {
            QTest::mouseClick(widget, Qt::LeftButton);
        } else if (input.startsWith("colour:")) {
            QTest::mouseClick(widget, Qt::LeftButton);
            QColorDialog* dialog = nullptr;
            for (QColorDialog* shown : panel->findChildren<QColorDialog*>())
                dialog = shown->isVisible() ? shown : dialog;
            QVERIFY(dialog);
            dialog->setCurrentColor(QColor(input.mid(7)));
            dialog->accept();
        } else if (auto* combo = qobject_cast<QComboBox*>(widget); combo && !combo->isEditable()) {
            WindowBench::type(input, combo); // the combo's own search by the first letters
        } else {
            if (auto* box = qobject_cast<QAbstractSpinBox*>(widget))
                box->selectAll();
            else if (auto* edit = qobject_cast<QLineEdit*>(widget))
                edit->selectAll();
            else if (auto* editable = qobject_cast<QComboBox*>(widget))
                editable->lineEdit()->selectAll();
            WindowBench::type(input, widget);
            QTest::keyClick(widget, Qt::Key_Enter);
        }
    }

    // The value of the key where the effect puts it; a set sync must be at the current second.
    QString landed(Effect effect, const QString& key) const {
        if (effect == linkSync) {
            const Sync* link = scene->getSync(SyncType::select, shape->getId(), true);
            return link ? link->getProperties().value(key) : QString("<no link>");
        }
        const QList<Sync*> atSecond = scene->getAllSyncs(shape->getId(), kSecond, true);
        if (effect == setSync) {
            if (atSecond.size() != 1 || atSecond.first()->getType() != SyncType::set)
                return "<no set sync at the second>";
            if (atSecond.first()->getProperties().value(key) != shape->getProperties().value(key))
                return "<sync and media differ>";
        } else if (!atSecond.isEmpty()) {
            return "<a sync for a static property>";
        }
        return comparable(key, shape->getProperties().value(key));
    }

private slots:
    void init() {
        doc = document::Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        other = doc->createScene();
        other->setLabel("Final"); // the combo's search by letters would open its list on a blank
        scene->setTotalTime(30);
        window = std::make_unique<QWidget>();
        panel = new Feature(doc, window.get());
        (new QVBoxLayout(window.get()))->addWidget(panel);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        // Two shapes, the second on top and current; the panel edits it at second 5.
        QVERIFY(doc->createMedia(scene, "", MediaType::shape, "1", ""));
        shape = doc->createMedia(scene, "", MediaType::shape, "0", "");
        QVERIFY(shape);
        scene->setCurrentTime(kSecond, false);
        scene->resetExecuteSyncs();
        QCOMPARE(panel->currentMedia(), shape);
    }

    void cleanup() {
        window.reset();
        doc->clearDocument();
    }

    // Each field lands where it must; bad input is clamped to the field's range or refused.
    void typedFieldChangesModel_data() {
        QTest::addColumn<QString>("before"); // a field to set first, as "field=input"
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("effect");
        auto row = [](const char* name, const QString& before, const QString& field,
                      const QString& input, const QString& key, const QString& expected, Effect e) {
            QTest::newRow(name) << before << field << input << key << expected << int(e);
        };
        row("width", "", "width", "40", "width", "40", setSync);
        row("bring forward", "sendToBack=click", "bringForward", "click", "layer", "2", setSync);
        row("hover", "", "hover", "enc", "hover", "1", mediaOnly);
        row("link", "", "link", "Fin", "link", "1", linkSync);
        row("scene start", "link=Fin", "timeEvent", "000130", "timeEvent", "90", linkSync);
        row("web address", "", "url", "example.org", "url", "http://example.org", linkSync);
        row("left", "textRight=click", "textLeft", "click", "textAlignment", "1", mediaOnly);
        row("font colour", "", "colorFont", "colour:#123456", "colorFont", "#123456", mediaOnly);
        // The data are made before init: a value of the media is named, and read when typing.
        row("width letters", "", "width", "abc", "width", "<as before>", mediaOnly);
        row("width over", "", "width", "150", "width", "100", setSync);
        // A family other than the media's, that no longer name starts with.
        QFontComboBox fonts;
        QStringList families;
        for (int index = 0; index < fonts.count(); ++index)
            families << fonts.itemText(index);
        for (const QString& family : qAsConst(families)) {
            const QRegularExpression prefix("^" + QRegularExpression::escape(family));
            if (family != QFontInfo(QFont("Arial")).family() &&
                families.filter(prefix).size() == 1) {
                row("font", "", "fontFamily", family, "fontFamily", family, mediaOnly);
                break;
            }
        }
    }

    void typedFieldChangesModel() {
        QFETCH(QString, before);
        QFETCH(QString, field);
        QFETCH(QString, input);
        QFETCH(QString, key);
        QFETCH(QString, expected);
        QFETCH(int, effect);
        if (!before.isEmpty())
            enter(before.section('=', 0, 0), before.section('=', 1));
        if (expected == "<as before>")
            expected = shape->getProperties().value(key);
        else if (expected == "<100 - height>")
            expected = document::NumberForm::of(100 - shape->getHeight().toDouble());
        enter(field, input);
        QCOMPARE(landed(Effect(effect), key), expected);
    }

    void showsTheMediaLink() {
        const QHash<QString, QString> link = {{"link", QString::number(other->getId())},
                                              {"timeEvent", "75"},
                                              {"key", "51"},
                                              {"url", "http://a.org"}};
        QVERIFY(doc->createSync(scene, shape->getId(), true, SyncType::select, 0, link));
        QCOMPARE(control<QComboBox>("link")->currentText(), QString("Final"));
        QCOMPARE(control<QLineEdit>("timeEvent")->text(), QString("00:01:15"));
        QCOMPARE(control<QComboBox>("key")->currentText(), QString("Amarelo"));
        // A target scene that goes leaves the list, and the link shows no scene.
        QVERIFY(doc->removeScene(other->getId()));
        QCOMPARE(control<QComboBox>("link")->findText("Final"), -1);
    }

    void followsSceneMediaAndProject() {
        QTabWidget* tabs = panel->tabs();
        QVERIFY(scene->removeMedia(shape->getId()));
        QCOMPARE(panel->currentMedia(), nullptr);
        QVERIFY(!tabs->isTabEnabled(Feature::transformTab));
        // A project opened from disk: its media show once selected.
        doc->clearDocument();
        Scene* opened = doc->loadScene(0, 0, 0, 10, "Aberta");
        Media* text = doc->loadMedia(opened, "", MediaType::text, 0, "",
                                     {{"width", "50"}, {"hover", "9"}}, "");
        doc->openProject();
        QVERIFY(opened->setCurrentMedia(text->getId()));
        QCOMPARE(control<QDoubleSpinBox>("width")->value(), 50.0);
        QCOMPARE(tabs->currentIndex(), int(Feature::textTab));
        // A hover kind the list does not offer survives an edit of another property.
        enter("fontSize", "20");
        QCOMPARE(text->getFontSize(), QString("20"));
        QCOMPARE(text->getHover(), QString("9"));
    }

    void videoShowsTransformWithoutTransparency() {
        Media* video = doc->createMedia(scene, "", MediaType::video, "", "");
        QVERIFY(video);
        QCOMPARE(panel->tabs()->currentIndex(), int(Feature::transformTab));
        QVERIFY(!panel->tabs()->isTabEnabled(Feature::shapeTab));
        QVERIFY(!control<QWidget>("transparency")->isEnabled());
        QVERIFY(control<QWidget>("width")->isEnabled());
    }

    void disabledWhilePlaying() {
        scene->playScene();
        QVERIFY(!panel->tabs()->isEnabled());
        scene->pauseScene();
        QVERIFY(panel->tabs()->isEnabled());
    }
};

SELVORA_TEST_MAIN(TestFeature)
#include "tst_feature.moc"

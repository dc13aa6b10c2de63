#include "app/TwoStageToolTip.h"
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
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QToolTip>
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
        row("height", "", "height", "30", "height", "30", setSync);
        row("X", "", "left", "12.5", "left", "12.5", setSync);
        row("Y", "", "top", "20", "top", "20", setSync);
        row("transparency", "", "transparency", "35", "transparency", "35", setSync);
        row("send to back", "", "sendToBack", "click", "layer", "1", setSync);
        row("send backward", "", "sendBackward", "click", "layer", "1", setSync);
        row("bring forward", "sendToBack=click", "bringForward", "click", "layer", "2", setSync);
        row("bring to front", "sendToBack=click", "bringToFront", "click", "layer", "2", setSync);
        row("hover", "", "hover", "enc", "hover", "1", mediaOnly);
        row("link", "", "link", "Fin", "link", "1", linkSync);
        row("scene start", "link=Fin", "timeEvent", "000130", "timeEvent", "90", linkSync);
        row("key", "", "key", "Verm", "key", "49", linkSync);
        row("web address", "", "url", "example.org", "url", "http://example.org", linkSync);
        row("https kept", "", "url", "https://a.org", "url", "https://a.org", linkSync);
        row("font size", "", "fontSize", "36", "fontSize", "36", mediaOnly);
        row("justify", "", "textJustify", "click", "textAlignment", "8", mediaOnly);
        row("centre", "", "textMiddle", "click", "textAlignment", "4", mediaOnly);
        row("right", "", "textRight", "click", "textAlignment", "2", mediaOnly);
        row("left", "textRight=click", "textLeft", "click", "textAlignment", "1", mediaOnly);
        row("bold", "", "negrito", "click", "fontType", "1", mediaOnly);
        row("italic", "", "italico", "click", "fontType", "2", mediaOnly);
        row("underline", "", "sublinhado", "click", "fontType", "3", mediaOnly);
        row("bold italic", "negrito=click", "italico", "click", "fontType", "4", mediaOnly);
        row("bold off", "negrito=click", "negrito", "click", "fontType", "0", mediaOnly);
        row("font colour", "", "colorFont", "colour:#123456", "colorFont", "#123456", mediaOnly);
        row("fill colour", "", "colorFill", "colour:#00ff00", "colorFill", "#00ff00", mediaOnly);
        row("no fill", "", "colorFillNull", "click", "colorFill", "", mediaOnly);
        row("outline colour", "", "colorOutline", "colour:#abcdef", "colorOutline", "#abcdef",
            mediaOnly);
        row("no outline", "", "colorOutlineNull", "click", "colorOutline", "", mediaOnly);
        row("outline width", "", "widthOutline", Definitions::getkOutlineWidthLegend(5),
            "widthOutline", "5", mediaOnly);
        row("outline style", "", "styleOutline", Definitions::getkOutlineStyleLegend(2),
            "styleOutline", "2", mediaOnly);
        // The data are made before init: a value of the media is named, and read when typing.
        row("width letters", "", "width", "abc", "width", "<as before>", mediaOnly);
        row("width over", "", "width", "150", "width", "100", setSync);
        row("X follows width", "left=30", "width", "80", "left", "20", setSync);
        row("X negative", "", "left", "-20", "left", "0", setSync);
        row("Y over", "top=1", "top", "250", "top", "<100 - height>", setSync);
        row("transparency over", "", "transparency", "500", "transparency", "100", setSync);
        row("transparency letters", "", "transparency", "x", "transparency", "0", mediaOnly);
        row("font size letters", "", "fontSize", "abc", "fontSize", "14", mediaOnly);
        row("font size zero", "", "fontSize", "0", "fontSize", "14", mediaOnly);
        row("font size long", "", "fontSize", "5000", "fontSize", "500", mediaOnly);
        row("scene start over", "link=Fin", "timeEvent", "999999", "timeEvent", "359999", linkSync);
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

    void mirrorsMediaAfterSeek() {
        auto* width = control<QDoubleSpinBox>("width");
        const double original = width->value();
        enter("width", "40");
        scene->setCurrentTime(0, false);
        scene->resetExecuteSyncs();
        QCOMPARE(width->value(), original);
        scene->setCurrentTime(kSecond + 1, false);
        scene->resetExecuteSyncs();
        QCOMPARE(width->value(), 40.0);
    }

    void followsUndoOfItsEdit() {
        new buffer::Buffer(doc, window.get());
        auto* width = control<QDoubleSpinBox>("width");
        const QString original = shape->getWidth();
        enter("width", "40");
        QCOMPARE(width->value(), 40.0);
        doc->undoAction(); // the set sync
        doc->undoAction(); // the media's properties
        QCOMPARE(shape->getWidth(), original);
        QCOMPARE(width->value(), original.toDouble());
        QVERIFY(scene->getAllSyncs(shape->getId(), kSecond, true).isEmpty());
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
        QCOMPARE(control<QLineEdit>("url")->text(), QString("http://a.org"));
        // A target scene that goes leaves the list, and the link shows no scene.
        QVERIFY(doc->removeScene(other->getId()));
        QCOMPARE(control<QComboBox>("link")->findText("Final"), -1);
    }

    void followsSceneMediaAndProject() {
        QTabWidget* tabs = panel->tabs();
        QVERIFY(doc->setCurrentScene(other->getId(), true));
        QCOMPARE(panel->currentMedia(), nullptr);
        QVERIFY(!tabs->isTabEnabled(Feature::transformTab));
        QVERIFY(doc->setCurrentScene(scene->getId(), true));
        QCOMPARE(panel->currentMedia(), shape);
        QVERIFY(tabs->isTabEnabled(Feature::shapeTab));
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
        QVERIFY(!tabs->isTabEnabled(Feature::shapeTab));
        // A hover kind the list does not offer survives an edit of another property.
        enter("fontSize", "20");
        QCOMPARE(text->getFontSize(), QString("20"));
        QCOMPARE(text->getHover(), QString("9"));
    }

    void videoShowsTransformWithoutTransparency() {
        Media* video = doc->createMedia(scene, "", MediaType::video, "", "");
        QVERIFY(video);
        QTabWidget* tabs = panel->tabs();
        QCOMPARE(tabs->currentIndex(), int(Feature::transformTab));
        QVERIFY(tabs->isTabEnabled(Feature::transformTab));
        for (int tab : {Feature::linkTab, Feature::textTab, Feature::shapeTab})
            QVERIFY(!tabs->isTabEnabled(tab));
        QVERIFY(!control<QWidget>("transparency")->isEnabled());
        QVERIFY(!control<QWidget>("hover")->isEnabled());
        QVERIFY(control<QWidget>("width")->isEnabled());
    }

    void disabledWhilePlaying() {
        scene->playScene();
        QVERIFY(!panel->tabs()->isEnabled());
        scene->pauseScene();
        QVERIFY(panel->tabs()->isEnabled());
    }

    void toolTipShortThenLong() {
        panel->tabs()->setCurrentIndex(Feature::transformTab);
        QWidget* label = nullptr;
        for (QWidget* candidate : panel->findChildren<QLabel*>()) {
            if (panel->toolTips()->shortTip(candidate) == "Largura")
                label = candidate;
        }
        QVERIFY(label);
        // The pointer is taken 10 pixels lower and to the right.
        QCursor::setPos(label->mapToGlobal(QPoint(0, 0)) - QPoint(5, 5));
        QTRY_COMPARE(QCursor::pos(), label->mapToGlobal(QPoint(0, 0)) - QPoint(5, 5));
        QHelpEvent event(QEvent::ToolTip, QPoint(), QCursor::pos());
        QApplication::sendEvent(panel, &event);
        QTRY_COMPARE(QToolTip::text(), QString("Largura"));
        QTRY_COMPARE_WITH_TIMEOUT(QToolTip::text(),
                                  "Largura:<br/><br/><font size=\"2\">Define a largura da mídia em "
                                  "foco.</font>",
                                  5000);
    }
};

SELVORA_TEST_MAIN(TestFeature)
#include "tst_feature.moc"

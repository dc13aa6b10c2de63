#include "feature/Feature.h"

#include "app/TwoStageToolTip.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/NumberForm.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "feature/LinkTab.h"
#include "feature/ShapeTab.h"
#include "feature/TextTab.h"
#include "feature/TransformTab.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFontComboBox>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace selvora {
namespace feature {

using document::Media;
using document::Scene;
using document::Sync;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

// The style codes of "fontType" are not bits: each button moves a code to another by its table.
constexpr int kBoldToggle[8] = {1, 0, 4, 5, 2, 3, 7, 6};
constexpr int kItalicToggle[8] = {2, 4, 0, 6, 1, 7, 3, 5};
constexpr int kUnderlineToggle[8] = {3, 5, 6, 0, 7, 1, 2, 4};
constexpr bool kBold[8] = {false, true, false, false, true, true, false, true};
constexpr bool kItalic[8] = {false, false, true, false, true, false, true, true};
constexpr bool kUnderline[8] = {false, false, false, true, false, true, true, true};

constexpr int kAlignLeft = Qt::AlignLeft;
constexpr int kAlignRight = Qt::AlignRight;
constexpr int kAlignCenter = Qt::AlignHCenter;
constexpr int kAlignJustify = Qt::AlignJustify;

// A style code from the model, or -1 when it is none of the eight.
int fontTypeOf(const QString& value) {
    bool ok = false;
    const int code = value.toInt(&ok);
    return ok && code >= 0 && code < 8 ? code : -1;
}

// The combo's value in decimal; the fallback when it shows no entry.
QString dataOf(const QComboBox* combo, const QString& fallback) {
    return combo->currentIndex() < 0 ? fallback : QString::number(combo->currentData().toInt());
}

// The entry of the value; none (index -1) for a value the combo does not offer, so that a later
// write keeps the media's own value instead of one the user never chose.
void selectData(QComboBox* combo, const QString& value) {
    bool ok = false;
    const int number = value.toInt(&ok);
    combo->setCurrentIndex(ok ? combo->findData(number) : -1);
}

// True when writing the hash would change nothing; geometry is compared in its stored form.
bool sameAs(const QHash<QString, QString>& hash, const QHash<QString, QString>& current) {
    static const QStringList kGeometry = {"left", "top", "width", "height"};
    for (auto it = hash.constBegin(); it != hash.constEnd(); ++it) {
        const QString value = kGeometry.contains(it.key())
                                  ? document::NumberForm::of(it.value().toDouble())
                                  : it.value();
        if (!current.contains(it.key()) || current.value(it.key()) != value)
            return false;
    }
    return true;
}

} // namespace

Feature::Feature(document::Document* document, QWidget* parent)
    : QWidget(parent), document_(document) {
    setDocumentConnections();
    if (document_->getCountScenes() > 0) {
        scene_ = document_->getScene(-1);
        setSceneConnections();
    }
    toolTip_ = new TwoStageToolTip(this);
    createObjects();
    createLayout();
    QLoggingCategory::setFilterRules("qt.network.ssl.w arning=false");
    setContextMenuPolicy(Qt::CustomContextMenu);
    setConnections();
    setOptions();
    turnOnPropertiesConnections();
    if (scene_ && scene_->hasCurrentMedia() && !scene_->hasCurrentTemplate())
        setCurrentMedia(scene_->getMedia(-1));
}

document::Media* Feature::currentMedia() const {
    return media_;
}

Feature::~Feature() {
    // The dialogs are children; their signals must not reach a half-destroyed panel.
    turnOffPropertiesConnections();
}

// ---------------------------------------------------------------- construction

void Feature::createObjects() {
    tabWidget_ = new QTabWidget(this);
    // The four titles stay readable: the panel is as wide as its tab bar.
    tabWidget_->setUsesScrollButtons(false);
    transformPage_ = new TransformTab(toolTip_, tabWidget_);
    linkPage_ = new LinkTab(toolTip_, tabWidget_);
    textPage_ = new TextTab(tabWidget_);
    shapePage_ = new ShapeTab(tabWidget_);
    for (QColorDialog** dialog : {&fillDialog_, &fontDialog_, &outlineDialog_}) {
        *dialog = new QColorDialog(this);
        (*dialog)->setOption(QColorDialog::DontUseNativeDialog);
        (*dialog)->setModal(false);
    }
}

void Feature::createLayout() {
    tabWidget_->addTab(transformPage_, tr("Transformar"));
    tabWidget_->addTab(linkPage_, tr("Elo"));
    tabWidget_->addTab(textPage_, tr("Texto"));
    tabWidget_->addTab(shapePage_, tr("Formas"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabWidget_);
    setMinimumSize(int(Definitions::getFeatureWidth()), int(Definitions::getFeatureHeight()));
    enabledTab(false);
}

// ---------------------------------------------------------------- connections

void Feature::setConnections() {
    const auto valueChanged = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    connect(transformPage_->width, valueChanged, this, &Feature::updateRangeValue);
    connect(transformPage_->height, valueChanged, this, &Feature::updateRangeValue);
    connect(transformPage_->sendToBack, &QPushButton::clicked, this, &Feature::setLayerToBack);
    connect(transformPage_->bringToFront, &QPushButton::clicked, this, &Feature::setLayerToFront);
    connect(transformPage_->sendBackward, &QPushButton::clicked, this, &Feature::setLayerDown);
    connect(transformPage_->bringForward, &QPushButton::clicked, this, &Feature::setLayerUp);
    connect(shapePage_->fill, &QToolButton::clicked, this, &Feature::fillColorDialog);
    connect(shapePage_->outline, &QToolButton::clicked, this, &Feature::outlineColorDialog);
    connect(textPage_->colour, &QPushButton::clicked, this, &Feature::fontColorDialog);
    connect(linkPage_->url, &QLineEdit::editingFinished, this, &Feature::checkUrl,
            Qt::UniqueConnection);
}

void Feature::setDocumentConnections() {
    connect(document_, &document::Document::clear, this, &Feature::clearFeature,
            Qt::UniqueConnection);
    connect(document_, &document::Document::sceneCurrent, this, &Feature::changeSlide,
            Qt::UniqueConnection);
    connect(document_, &document::Document::sceneAdded, this, &Feature::setOptions,
            Qt::UniqueConnection);
    connect(document_, &document::Document::sceneRemovedId, this, &Feature::removeSlide,
            Qt::UniqueConnection);
}

void Feature::setSceneConnections() {
    if (!scene_)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene_, &Scene::playerStatus, this, &Feature::setPropertiesEnableState, unique);
    connect(scene_, &Scene::mediaCurrent, this, &Feature::setCurrentMedia, unique);
    connect(scene_, &Scene::templateCurrent, this, &Feature::disableInterfaceFeature, unique);
    connect(scene_, &Scene::mediaNull, this, &Feature::nullingCurrentMedia, unique);
    connect(scene_, &Scene::syncAdded, this, &Feature::updateValuesFeature, unique);
    // A seek or a tick moves the media through their syncs; the panel shows the new second.
    connect(scene_, &Scene::currentTime, this, &Feature::updateValuesFeature, unique);
}

void Feature::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, nullptr, this, nullptr);
}

void Feature::setMediaConnections() {
    if (!media_)
        return;
    connect(media_, QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged), this,
            &Feature::updateValuesFeature, Qt::UniqueConnection);
    if (scene_ && scene_->hasSync(SyncType::select, media_->getId(), true)) {
        link_ = scene_->getSync(SyncType::select, media_->getId(), true);
        setSyncConnections();
    }
}

void Feature::setMediaDisconnections() {
    if (media_)
        disconnect(media_, nullptr, this, nullptr);
    if (media_ && scene_ && scene_->hasSync(SyncType::select, media_->getId(), true))
        link_ = scene_->getSync(SyncType::select, media_->getId(), true);
    if (link_)
        disconnect(link_, nullptr, this, nullptr);
}

void Feature::setSyncConnections() {
    if (link_)
        connect(link_, QOverload<QHash<QString, QString>>::of(&Sync::propertiesChanged), this,
                &Feature::updateValuesFeature, Qt::UniqueConnection);
}

void Feature::turnOnPropertiesConnections() {
    if (propertiesOff_ > 0 && --propertiesOff_ > 0)
        return;
    if (!propertiesConnections_.isEmpty())
        return;
    auto on = [this](auto sender, auto signal, auto slot) {
        propertiesConnections_ << connect(sender, signal, this, slot);
    };
    const auto spinChanged = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    const auto indexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
    TransformTab* t = transformPage_;
    for (QDoubleSpinBox* box : {t->height, t->width, t->left, t->top})
        on(box, spinChanged, &Feature::updateMediaSyncProperties);
    on(t->transparency, QOverload<int>::of(&QSpinBox::valueChanged),
       &Feature::updateMediaSyncProperties);
    // Indexes, not texts: two entries may read alike (scenes of one label).
    for (QComboBox* combo : {t->hover, shapePage_->outlineStyle, shapePage_->outlineWidth})
        on(combo, indexChanged, &Feature::updateMediaProperties);
    on(textPage_->size, &QComboBox::currentTextChanged, &Feature::updateMediaProperties);
    on(textPage_->font, &QFontComboBox::currentFontChanged, &Feature::updateFontFamily);
    on(linkPage_->target, indexChanged, &Feature::updateSyncsProperties);
    on(linkPage_->key, indexChanged, &Feature::updateSyncsProperties);
    on(linkPage_->start, &QLineEdit::editingFinished, &Feature::updateSyncsProperties);
    on(linkPage_->url, &QLineEdit::editingFinished, &Feature::updateTextUrl);
    on(linkPage_->url, &QLineEdit::editingFinished, &Feature::updateSyncsProperties);
    on(fillDialog_, &QColorDialog::colorSelected, &Feature::updateFillColor);
    on(fontDialog_, &QColorDialog::colorSelected, &Feature::updateFontColor);
    on(outlineDialog_, &QColorDialog::colorSelected, &Feature::updateOutlineColor);
    on(shapePage_->fillNull, &QToolButton::clicked, &Feature::updateFillColorNull);
    on(shapePage_->outlineNull, &QToolButton::clicked, &Feature::updateOutlineColorNull);
    const std::pair<QPushButton*, const int*> styles[] = {{textPage_->bold, kBoldToggle},
                                                          {textPage_->italic, kItalicToggle},
                                                          {textPage_->underline, kUnderlineToggle}};
    for (const auto& style : styles)
        on(style.first, &QPushButton::clicked,
           [this, table = style.second] { toggleFontType(table); });
    const std::pair<QPushButton*, int> alignments[] = {{textPage_->alignLeft, kAlignLeft},
                                                       {textPage_->alignCenter, kAlignCenter},
                                                       {textPage_->alignRight, kAlignRight},
                                                       {textPage_->justify, kAlignJustify}};
    for (const auto& alignment : alignments)
        on(alignment.first, &QPushButton::clicked,
           [this, value = alignment.second] { alignText(value); });
}

void Feature::turnOffPropertiesConnections() {
    if (propertiesOff_++ > 0)
        return;
    for (const QMetaObject::Connection& connection : qAsConst(propertiesConnections_))
        disconnect(connection);
    propertiesConnections_.clear();
}

// ---------------------------------------------------------------- following the model

void Feature::clearFeature() {
    turnOffPropertiesConnections();
    transformPage_->width->setValue(100);
    transformPage_->height->setValue(100);
    transformPage_->left->setValue(0);
    transformPage_->top->setValue(0);
    setMediaDisconnections();
    setSceneDisconnections();
    scene_ = nullptr;
    media_ = nullptr;
    link_ = nullptr;
    enabledTab(false);
    turnOnPropertiesConnections();
}

void Feature::changeSlide(Scene* scene) {
    if (scene == scene_)
        return;
    clearFeature();
    scene_ = scene;
    if (!scene_)
        return;
    setSceneConnections();
    tabWidget_->setEnabled(scene_->getStatusPlayer() != Definitions::kPlayerStatus::play);
    setOptions();
    if (scene_->hasCurrentMedia() && !scene_->hasCurrentTemplate())
        setCurrentMedia(scene_->getMedia(-1));
}

void Feature::setOptions() {
    rebuildOptions(-1);
}

void Feature::rebuildOptions(int skippedScene) {
    turnOffPropertiesConnections();
    QList<Scene*> scenes = document_->getSceneAllInOrder();
    scenes.erase(std::remove_if(scenes.begin(), scenes.end(),
                                [skippedScene](Scene* s) { return s->getId() == skippedScene; }),
                 scenes.end());
    linkPage_->fillScenes(scenes);
    linkPage_->fillKeys();
    turnOnPropertiesConnections();
}

void Feature::removeSlide(int id) {
    // The scene is still listed while its removal is announced.
    if (scene_ && scene_->getId() == id) {
        setMediaDisconnections();
        setSceneDisconnections();
        scene_ = nullptr;
        media_ = nullptr;
        link_ = nullptr;
        enabledTab(false);
    }
    rebuildOptions(id);
}

void Feature::setPropertiesEnableState(Definitions::kPlayerStatus status) {
    if (status == Definitions::kPlayerStatus::play) {
        tabWidget_->setEnabled(false);
    } else if (status == Definitions::kPlayerStatus::pause ||
               status == Definitions::kPlayerStatus::stop) {
        tabWidget_->setEnabled(true);
        updateValuesFeature();
    }
}

void Feature::setCurrentMedia(Media* media) {
    if (!media)
        return;
    if (media_) {
        if (media_->getId() == media->getId() && scene_ && !scene_->hasCurrentTemplate())
            return;
        setMediaDisconnections();
    }
    media_ = media;
    link_ = nullptr;
    setMediaConnections();
    updateInterfaceFeature();
    updateValuesFeature();
}

void Feature::disableInterfaceFeature(int) {
    enabledLayout(false);
    enabledTab(false);
}

void Feature::nullingCurrentMedia() {
    setMediaDisconnections();
    media_ = nullptr;
    link_ = nullptr;
    enabledTab(false);
}

void Feature::updateInterfaceFeature() {
    if (!media_)
        return;
    enabledLayout(true);
    enabledTab(false);
    struct Row {
        MediaType type;
        int tabs; // how many tabs, from the first, are enabled
        Tab current;
    };
    static const Row kRows[] = {
        {MediaType::video, 1, transformTab},
        {MediaType::image, 2, transformTab},
        {MediaType::text, 3, textTab},
        {MediaType::shape, 4, shapeTab},
    };
    for (const Row& row : kRows) {
        if (row.type != media_->getType())
            continue;
        for (int tab = 0; tab < row.tabs; ++tab)
            tabWidget_->setTabEnabled(tab, true);
        tabWidget_->setCurrentIndex(row.current);
    }
    if (media_->getType() == MediaType::video) {
        transformPage_->transparencyGroup->setEnabled(false);
        transformPage_->hoverGroup->setEnabled(false);
    }
}

void Feature::enabledLayout(bool enabled) {
    for (QWidget* group : transformPage_->groups())
        group->setEnabled(enabled);
    for (QWidget* page : {static_cast<QWidget*>(linkPage_), static_cast<QWidget*>(textPage_),
                          static_cast<QWidget*>(shapePage_)})
        page->setEnabled(enabled);
}

void Feature::enabledTab(bool enabled) {
    for (int tab = 0; tab < tabWidget_->count(); ++tab)
        tabWidget_->setTabEnabled(tab, enabled);
}

void Feature::updateValuesFeature() {
    if (!media_)
        return;
    turnOffPropertiesConnections();
    setOptions();
    loadMediaProperties(media_->getProperties());
    turnOnPropertiesConnections();
}

void Feature::loadMediaProperties(const QHash<QString, QString>& properties) {
    turnOffPropertiesConnections();
    TransformTab* t = transformPage_;
    // Width and height first: they set the ranges of X and Y.
    t->width->setValue(properties.value("width").toDouble());
    t->height->setValue(properties.value("height").toDouble());
    t->left->setValue(properties.value("left").toDouble());
    t->top->setValue(properties.value("top").toDouble());
    layer_ = properties.value("layer");
    t->transparency->setValue(properties.value("transparency", "0").toInt());
    // No hover is the empty entry; "fade" and "border" are not offered and show no entry.
    const QString hover = properties.value("hover");
    if (hover.isEmpty())
        t->hover->setCurrentIndex(0);
    else
        selectData(t->hover, hover);

    loadLink();

    colorFill_ = properties.value("colorFill");
    colorFont_ = properties.value("colorFont");
    colorOutline_ = properties.value("colorOutline");
    selectData(shapePage_->outlineStyle, properties.value("styleOutline"));
    selectData(shapePage_->outlineWidth, properties.value("widthOutline"));
    fontFamily_ = properties.value("fontFamily");
    if (!fontFamily_.isEmpty()) {
        QFont font;
        font.fromString(fontFamily_);
        textPage_->font->setCurrentFont(font);
    }
    textPage_->size->setCurrentText(properties.value("fontSize"));

    const int fontType = fontTypeOf(properties.value("fontType"));
    fontType_ = qMax(0, fontType);
    showFontType(fontType);
    const int alignment = properties.value("textAlignment").toInt();
    const bool known =
        alignment == kAlignRight || alignment == kAlignCenter || alignment == kAlignJustify;
    textAlignment_ = known ? alignment : kAlignLeft;
    showAlignment(textAlignment_);
    turnOnPropertiesConnections();
}

void Feature::loadLink() {
    LinkTab* l = linkPage_;
    l->target->setCurrentIndex(0);
    l->setSeconds(0);
    l->key->setCurrentIndex(0);
    l->url->clear();
    if (!media_ || !scene_ || !scene_->hasSync(SyncType::select, media_->getId(), true))
        return;
    link_ = scene_->getSync(SyncType::select, media_->getId(), true);
    setSyncConnections();
    // An id of no scene, or none at all, shows the empty entry.
    const QString target = link_->getLink();
    bool known = false;
    const int sceneId = target.toInt(&known);
    known = known && document_->getSceneAll().contains(sceneId);
    l->target->setCurrentIndex(known ? qMax(0, l->target->findData(sceneId)) : 0);
    l->setSeconds(link_->getTimeEvent().toInt());
    const QString key = link_->getKey();
    l->key->setCurrentIndex(key.isEmpty() ? 0 : qMax(0, l->key->findData(key.toInt())));
    l->url->setText(link_->getUrl());
}

void Feature::showFontType(int fontType) {
    const bool known = fontType >= 0 && fontType < 8;
    textPage_->bold->setChecked(known && kBold[fontType]);
    textPage_->italic->setChecked(known && kItalic[fontType]);
    textPage_->underline->setChecked(known && kUnderline[fontType]);
}

void Feature::showAlignment(int alignment) {
    textPage_->alignLeft->setChecked(alignment == kAlignLeft);
    textPage_->alignRight->setChecked(alignment == kAlignRight);
    textPage_->alignCenter->setChecked(alignment == kAlignCenter);
    textPage_->justify->setChecked(alignment == kAlignJustify);
}

void Feature::updateRangeValue() {
    // A media can not leave the canvas through this panel.
    transformPage_->left->setRange(0, 100 - transformPage_->width->value());
    transformPage_->top->setRange(0, 100 - transformPage_->height->value());
}

// ---------------------------------------------------------------- writing the model

void Feature::updateMediaProperties() {
    if (!media_)
        return;
    const MediaType type = media_->getType();
    const bool shape = type == MediaType::shape;
    const bool text = shape || type == MediaType::text;
    const auto only = [](bool applies, const QString& value) {
        return applies ? value : QString("");
    };
    bool sizeOk = false;
    const int size = textPage_->size->currentText().toInt(&sizeOk);
    // A size being typed may be empty for a moment: the media keeps its own meanwhile.
    const QString fontSize =
        sizeOk && size >= TextTab::kMinFontSize && size <= TextTab::kMaxFontSize
            ? QString::number(size)
            : media_->getFontSize();
    QHash<QString, QString> hash;
    hash.insert("hover",
                only(type != MediaType::audio, dataOf(transformPage_->hover, media_->getHover())));
    hash.insert("colorOutline", only(shape, colorOutline_));
    hash.insert("colorFill", only(shape, colorFill_));
    hash.insert("colorFont", only(text, colorFont_));
    hash.insert("widthOutline",
                only(shape, dataOf(shapePage_->outlineWidth, media_->getWidthOutline())));
    hash.insert("styleOutline",
                only(shape, dataOf(shapePage_->outlineStyle, media_->getStyleOutline())));
    hash.insert("fontFamily", only(text, fontFamily_));
    hash.insert("fontType", only(text, QString::number(fontType_)));
    hash.insert("fontSize", only(text, fontSize));
    hash.insert("textAlignment", only(text, QString::number(textAlignment_)));
    if (sameAs(hash, media_->getProperties()))
        return;
    setMediaDisconnections();
    media_->setProperties(hash);
    setMediaConnections();
}

void Feature::updateMediaSyncProperties() {
    // A sound has no geometry, layer or transparency to write.
    if (!media_ || !scene_ || media_->getType() == MediaType::audio)
        return;
    const int oldLayer = media_->getLayer().toInt();
    const TransformTab* t = transformPage_;
    QHash<QString, QString> hash;
    hash.insert("left", QString::number(t->left->value(), 'g', 6));
    hash.insert("top", QString::number(t->top->value(), 'g', 6));
    hash.insert("width", QString::number(t->width->value(), 'g', 6));
    hash.insert("height", QString::number(t->height->value(), 'g', 6));
    hash.insert("layer", layer_);
    hash.insert("transparency", QString::number(t->transparency->value()));
    if (sameAs(hash, media_->getProperties()))
        return;
    setMediaDisconnections();
    media_->setProperties(hash);
    scene_->updateMediasLayer(media_->getId(), oldLayer, layer_.toInt());
    // The scene keeps the event only inside the media's start and stop; outside, the media alone
    // changes.
    document_->createSync(scene_, media_->getId(), true, SyncType::set, scene_->getCurrentTime(),
                          media_->getProperties(), -1);
    setMediaConnections();
}

void Feature::updateSyncsProperties() {
    if (!media_ || !scene_)
        return;
    const LinkTab* l = linkPage_;
    const int target = l->target->currentData().toInt();
    const int key = l->key->currentData().toInt();
    const bool hasTarget = l->target->currentIndex() > 0 && target != -1;
    QHash<QString, QString> hash;
    hash.insert("link", hasTarget ? QString::number(target) : QString(""));
    hash.insert("timeEvent", hasTarget ? QString::number(l->seconds()) : QString(""));
    hash.insert("key",
                l->key->currentIndex() > 0 && key != -1 ? QString::number(key) : QString(""));
    hash.insert("url", l->url->text());
    // The edit shows the time as it is kept: 00:99:00 becomes 01:39:00.
    turnOffPropertiesConnections();
    linkPage_->setSeconds(l->seconds());
    turnOnPropertiesConnections();
    Sync* existing = scene_->getSync(SyncType::select, media_->getId(), true);
    if (existing && sameAs(hash, existing->getProperties()))
        return;
    setMediaDisconnections();
    document_->createSync(scene_, media_->getId(), true, SyncType::select, 0, hash, -1);
    setMediaConnections();
}

void Feature::updateTextUrl() {
    const QString text = linkPage_->url->text();
    if (!text.isEmpty() && !text.contains("http://") && !text.contains("https://"))
        linkPage_->url->setText("http://" + text);
}

void Feature::updateFontFamily(const QFont& font) {
    fontFamily_ = font.toString();
    updateMediaProperties();
}

// ---------------------------------------------------------------- layers

void Feature::moveToLayerOf(const Media* source) {
    if (!media_ || !source)
        return;
    layer_ = source->getLayer();
    updateMediaSyncProperties();
}

void Feature::setLayerUp() {
    if (scene_ && media_)
        moveToLayerOf(scene_->nextMediaLayer(media_));
}

void Feature::setLayerDown() {
    if (scene_ && media_)
        moveToLayerOf(scene_->backMediaLayer(media_));
}

void Feature::setLayerToFront() {
    if (scene_)
        moveToLayerOf(scene_->lastMediaLayer());
}

void Feature::setLayerToBack() {
    if (scene_)
        moveToLayerOf(scene_->firstMediaLayer());
}

// ---------------------------------------------------------------- text style

void Feature::toggleFontType(const int* table) {
    if (!media_)
        return;
    fontType_ = table[qMax(0, fontTypeOf(media_->getFontType()))];
    showFontType(fontType_);
    updateMediaProperties();
}

void Feature::alignText(int alignment) {
    textAlignment_ = alignment;
    showAlignment(alignment);
    updateMediaProperties();
}

// ---------------------------------------------------------------- colours

void Feature::chooseColour(QColorDialog* dialog, const QString& colour) {
    QColor current;
    current.setNamedColor(colour);
    dialog->setCurrentColor(current);
    dialog->show();
}

void Feature::fillColorDialog() {
    chooseColour(fillDialog_, colorFill_);
}

void Feature::fontColorDialog() {
    chooseColour(fontDialog_, colorFont_);
}

void Feature::outlineColorDialog() {
    chooseColour(outlineDialog_, colorOutline_);
}

void Feature::updateFillColor() {
    colorFill_ = fillDialog_->currentColor().name();
    updateMediaProperties();
}

void Feature::updateFillColorNull() {
    colorFill_ = QString();
    updateMediaProperties();
}

void Feature::updateFontColor() {
    colorFont_ = fontDialog_->currentColor().name();
    updateMediaProperties();
}

void Feature::updateOutlineColor() {
    colorOutline_ = outlineDialog_->currentColor().name();
    updateMediaProperties();
}

void Feature::updateOutlineColorNull() {
    colorOutline_ = QString();
    updateMediaProperties();
}

// ---------------------------------------------------------------- tips and messages

bool Feature::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        toolTip_->showAtPointer(tabWidget_->currentWidget());
    return QWidget::event(event);
}

void Feature::error(QNetworkReply::NetworkError code) {
    const int value = int(code);
    if (value == 0)
        return;
    struct Range {
        int low;
        int high;
        const char* text;
    };
    static const Range kRanges[] = {
        {1, 99, "Erro relacionado a rede."},
        {101, 199, "Erro relacionado ao proxy."},
        {201, 299, "Erro relacionado ao conteúdo."},
        {301, 399, "Erro de protocolo."},
        {401, 499, "Erro relacionado ao servidor. Provavelmente sua URL é inválida."},
    };
    QString reason;
    for (const Range& range : kRanges) {
        if (value >= range.low && value <= range.high)
            reason = tr(range.text);
    }
    QMessageBox box(QMessageBox::Information, tr("Elo para página Web"),
                    tr("Não foi possível testar o endereço indicado.\n%1").arg(reason),
                    QMessageBox::Ok);
    box.exec();
}

} // namespace feature
} // namespace selvora

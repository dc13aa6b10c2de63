#include "temporalView/TemporalView.h"

#include "app/TimeText.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "temporalView/MarkerItem.h"

#include <QAction>
#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace selvora {
namespace temporalView {

using document::Media;
using document::Scene;
using document::Sync;
using PlayerStatus = Definitions::kPlayerStatus;
using SyncType = Definitions::kSyncType;

namespace {

constexpr int kMediaLane = -10;
constexpr int kSceneLane = 10;

int editSeconds(const QLineEdit* edit) {
    return TimeText::fromText(edit->text());
}

// The time under a point of the slider, in whole seconds of the scene.
int timeAt(int total, int x, int width) {
    return width > 0 ? int(qint64(total) * x / width) : 0;
}

} // namespace

TemporalView::TemporalView(document::Document* document, QWidget* parent)
    : QWidget(parent), document_(document), parent_(parent) {
    markersScene_ = new QGraphicsScene(this);
    createContextMenu();
    createMarkersView();
    createLayout();
    setConnections();
    setDocumentConnections();
    // Mirrors the scene that is current already, as a change of scene would.
    changeSlide(document_->getScene(-1));
    loadMarkersScene(scene_);
}

// ---------------------------------------------------------------- construction

void TemporalView::createContextMenu() {
    contextMenu_ = new QMenu(this);
    deleteAction_ = new QAction(QIcon(":/imagens/del"), tr("Deletar"), this);
    contextMenu_->addAction(deleteAction_);
}

void TemporalView::createMarkersView() {
    const double width = Definitions::getTemporalViewWidth();
    markersScene_->setSceneRect(0, 0, width, 30);
    markersScene_->setBackgroundBrush(
        palette().brush(palette().currentColorGroup(), backgroundRole()));
    const QPen pen(QBrush(QColor(150, 150, 150)), 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    markersScene_->addLine(0, 10, width, 10, pen);
    markersScene_->addLine(0, 30, width, 30, pen);

    markersView_ = new QGraphicsView(markersScene_, this);
    markersView_->setObjectName("markersView");
    markersView_->setMinimumWidth(int(width));
    markersView_->setMaximumHeight(50);
    markersView_->setStyleSheet("border: 0px");
    markersView_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    markersView_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void TemporalView::createLayout() {
    struct Button {
        QPushButton** button;
        const char* name;
        const char* icon;
        const char* tip;
    };
    const Button buttons[] = {
        {&seekBackwardButton_, "seekBackwardButton", ":/imagens/seekBackward",
         QT_TR_NOOP("Ir para o sincronismo anterior")},
        {&playButton_, "playButton", ":/imagens/play", QT_TR_NOOP("Tocar a cena")},
        {&seekForwardButton_, "seekForwardButton", ":/imagens/seekForward",
         QT_TR_NOOP("Ir para o sincronismo posterior")},
    };
    auto* controls = new QHBoxLayout();
    for (const Button& row : buttons) {
        auto* button = new QPushButton(this);
        button->setObjectName(row.name);
        button->setIcon(QIcon(row.icon));
        button->setToolTip(tr(row.tip));
        button->setEnabled(false);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        controls->addWidget(button);
        *row.button = button;
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    mediaLabel_ = new QLabel(this);
    mediaLabel_->setObjectName("mediaLabel");
    sceneLabel_ = new QLabel(this);
    sceneLabel_->setObjectName("sceneLabel");
    auto* left = new QVBoxLayout();
    left->addWidget(mediaLabel_, 0, Qt::AlignRight);
    left->addWidget(sceneLabel_, 0, Qt::AlignRight);
    left->addLayout(controls);

    slider_ = new QSlider(Qt::Horizontal, this);
    slider_->setObjectName("timeSlider");
    slider_->setRange(0, 0);
    slider_->setTracking(true);
    slider_->setMinimumWidth(int(Definitions::getTemporalViewWidth()));
    slider_->installEventFilter(this);
    auto* centre = new QVBoxLayout();
    centre->addWidget(markersView_);
    centre->addWidget(slider_);

    auto* titles = new QHBoxLayout();
    titles->addWidget(new QLabel(tr("<b><font size=\"1\">Tempo Atual</font></b>"), this), 1,
                      Qt::AlignHCenter);
    titles->addSpacing(15);
    titles->addWidget(new QLabel(tr("<b><font size=\"1\">Tempo Total</font></b>"), this), 1,
                      Qt::AlignHCenter);
    auto* times = new QHBoxLayout();
    for (QLineEdit** edit : {&currentTimeEdit_, &totalTimeEdit_}) {
        *edit = new QLineEdit(this);
        (*edit)->setFixedWidth(70);
        (*edit)->setInputMask("00:00:00");
        (*edit)->setText("000000");
    }
    currentTimeEdit_->setObjectName("currentTimeEdit");
    totalTimeEdit_->setObjectName("totalTimeEdit");
    times->addWidget(currentTimeEdit_);
    times->addWidget(new QLabel("/", this));
    times->addWidget(totalTimeEdit_);
    auto* right = new QVBoxLayout();
    right->addStretch();
    right->addLayout(titles);
    right->addLayout(times);

    auto* outer = new QHBoxLayout(this);
    outer->addLayout(left);
    outer->addLayout(centre);
    outer->addLayout(right);
}

// ---------------------------------------------------------------- connections

void TemporalView::setConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(playButton_, &QPushButton::clicked, this, &TemporalView::statePlayer, unique);
    connect(seekBackwardButton_, &QPushButton::clicked, this, &TemporalView::seekBackwardSync,
            unique);
    connect(seekForwardButton_, &QPushButton::clicked, this, &TemporalView::seekForwardSync,
            unique);
    connect(slider_, &QSlider::sliderMoved, this, &TemporalView::updateTime, unique);
    connect(slider_, &QSlider::sliderReleased, this, &TemporalView::sliderReleased, unique);
    connect(slider_, &QSlider::actionTriggered, this, &TemporalView::sliderPressed, unique);
    connect(currentTimeEdit_, &QLineEdit::editingFinished, this,
            &TemporalView::updateTextCurrentTime, unique);
    connect(totalTimeEdit_, &QLineEdit::editingFinished, this, &TemporalView::updateTextTotalTime,
            unique);
    connect(deleteAction_, &QAction::triggered, this, &TemporalView::deleteMarker, unique);
}

void TemporalView::setDisconnections() {
    disconnect(playButton_, &QPushButton::clicked, this, &TemporalView::statePlayer);
    disconnect(seekBackwardButton_, &QPushButton::clicked, this, &TemporalView::seekBackwardSync);
    disconnect(seekForwardButton_, &QPushButton::clicked, this, &TemporalView::seekForwardSync);
    disconnect(slider_, &QSlider::sliderMoved, this, &TemporalView::updateTime);
    disconnect(slider_, &QSlider::sliderReleased, this, &TemporalView::sliderReleased);
    disconnect(slider_, &QSlider::actionTriggered, this, &TemporalView::sliderPressed);
    disconnect(currentTimeEdit_, &QLineEdit::editingFinished, this,
               &TemporalView::updateTextCurrentTime);
    disconnect(totalTimeEdit_, &QLineEdit::editingFinished, this,
               &TemporalView::updateTextTotalTime);
    disconnect(deleteAction_, &QAction::triggered, this, &TemporalView::deleteMarker);
}

void TemporalView::setDocumentConnections() {
    using document::Document;
    const auto unique = Qt::UniqueConnection;
    connect(document_, &Document::sceneCurrent, this, &TemporalView::changeSlide, unique);
    connect(document_, &Document::sceneCurrent, this, &TemporalView::loadMarkersScene, unique);
    connect(document_, &Document::newp, this, &TemporalView::resetTotalTime, unique);
    connect(document_, &Document::newp, this, &TemporalView::refreshPlayerControls, unique);
    connect(document_, &Document::clear, this, &TemporalView::clear, unique);
    connect(document_, &Document::sceneRemoved, this, &TemporalView::forgetScene, unique);
}

void TemporalView::setDocumentDisconnections() {
    disconnect(document_, nullptr, this, nullptr);
}

void TemporalView::setSceneConnections() {
    Scene* scene = scene_;
    if (!scene)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene, &Scene::playerStatus, this, &TemporalView::adaptPlayerControl, unique);
    connect(scene, &Scene::playerStatus, this, &TemporalView::refreshPlayerControls, unique);
    connect(scene, &Scene::currentTime, this, &TemporalView::setCurrentTime, unique);
    connect(scene, QOverload<int>::of(&Scene::totalTime), this, &TemporalView::setTotalTime,
            unique);
    connect(scene, QOverload<int>::of(&Scene::totalTime), this,
            &TemporalView::updateMarkersPositions, unique);
    connect(scene, &Scene::mediaNull, this, &TemporalView::nullingCurrentMedia, unique);
    connect(scene, &Scene::mediaAdded, this, &TemporalView::refreshPlayerControls, unique);
    connect(scene, &Scene::mediaRemoved, this, &TemporalView::updatePlayerControls, unique);
    connect(scene, &Scene::mediaCurrent, this, &TemporalView::updateMedia, unique);
    connect(scene, &Scene::mediaCurrent, this, &TemporalView::loadMarkersMedia, unique);
    connect(scene, &Scene::syncAdded, this, &TemporalView::insertMarker, unique);
    connect(scene, &Scene::syncAdded, this, &TemporalView::refreshPlayerControls, unique);
    connect(scene, &Scene::syncRemoved, this, &TemporalView::removeSyncMarkers, unique);
    connect(scene, &Scene::syncRemovedId, this, &TemporalView::refreshPlayerControls, unique);
    connect(scene, &Scene::syncUpdate, this, &TemporalView::updateSyncMarkers, unique);
    connect(scene, &Scene::syncUpdateId, this, &TemporalView::refreshPlayerControls, unique);
    connect(scene, QOverload<QString>::of(&Scene::changeLabel), this,
            &TemporalView::updateSceneLabel, unique);
    connect(scene, &Scene::templateCurrent, this, &TemporalView::loadMarkersTemplates, unique);
}

// All of them: a scene that is no longer current must not reach the strip.
void TemporalView::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, nullptr, this, nullptr);
}

void TemporalView::setMediaConnections() {
    if (media_)
        connect(media_, QOverload<QString>::of(&Media::changeLabel), this,
                &TemporalView::updateMediaLabel, Qt::UniqueConnection);
}

void TemporalView::setMediaDisconnections() {
    if (media_)
        disconnect(media_, nullptr, this, nullptr);
}

void TemporalView::setMarkerConnections(MarkerItem* marker) {
    connect(marker, &MarkerItem::markerPressed, this, &TemporalView::activateMarker,
            Qt::UniqueConnection);
    // Queued: the menu is not opened inside the marker's own mouse press.
    connect(marker, &MarkerItem::contextMenuRequested, this, &TemporalView::showContextMenu,
            Qt::QueuedConnection);
}

// ---------------------------------------------------------------- scene and media

void TemporalView::changeSlide(Scene* scene) {
    if (scene == scene_)
        return;
    clear();
    scene_ = scene;
    if (!scene)
        return;
    setSceneConnections();
    setTotalTime(scene->getTotalTime());
    setCurrentTime(scene->getCurrentTime());
    updateSceneLabel(scene->getLabel());
    if (scene->hasCurrentMedia()) {
        if (Media* media = scene->getMedia(-1)) {
            updateMedia(media);
            loadMarkersMedia(media);
        }
    }
    adaptPlayerControl(scene->getStatusPlayer());
    updatePlayerControls(nullptr);
}

void TemporalView::clear() {
    setSceneDisconnections();
    setMediaDisconnections();
    scene_ = nullptr;
    media_ = nullptr;
    currentTimeEdit_->clear();
    totalTimeEdit_->clear();
    sceneLabel_->clear();
    mediaLabel_->clear();
    clearMarkers();
}

void TemporalView::forgetScene(Scene* scene) {
    if (scene && scene == scene_)
        clear();
}

void TemporalView::updateMedia(Media* media) {
    if (media == media_)
        return;
    setMediaDisconnections();
    media_ = media;
    updateMediaLabel(media ? media->getLabel() : QString());
    setMediaConnections();
}

void TemporalView::nullingCurrentMedia() {
    setMediaDisconnections();
    media_ = nullptr;
    disabledLayout();
}

void TemporalView::disabledLayout() {
    mediaLabel_->clear();
}

void TemporalView::updateMediaLabel(QString label) {
    mediaLabel_->setText(label);
}

void TemporalView::updateSceneLabel(QString label) {
    sceneLabel_->setText(label);
}

// ---------------------------------------------------------------- player and times

int TemporalView::sceneTotal() const {
    return scene_ ? scene_->getTotalTime() : 0;
}

void TemporalView::updateSeekButtons() {
    Scene* current = document_->getScene(-1);
    seekBackwardButton_->setEnabled(current && current->hasBeforeSync(-1));
    seekForwardButton_->setEnabled(current && current->hasNextSync(-1));
}

void TemporalView::setCurrentTime(int time) {
    slider_->setValue(time);
    currentTimeEdit_->setText(TimeText::timeString(time));
    updateSeekButtons();
}

void TemporalView::setTotalTime(int time) {
    slider_->setRange(0, time);
    totalTimeEdit_->setText(TimeText::timeString(time));
}

void TemporalView::updatePlayerControls(Media* media) {
    if (!scene_)
        return;
    // A removal announces a media that the scene still counts, and removes its syncs before
    // it lets it go: until then it is not counted.
    if (media) {
        leavingMedia_ = media;
        if (scene_->countMedia() < 2) {
            playButton_->setEnabled(false);
            return;
        }
    }
    const int count = scene_->countMedia() - (leavingMedia_ ? 1 : 0);
    playButton_->setEnabled(count >= 1 || scene_->getStatusPlayer() == PlayerStatus::play);
    updateSeekButtons();
}

void TemporalView::adaptPlayerControl(Definitions::kPlayerStatus status) {
    if (status != PlayerStatus::play && status != PlayerStatus::pause &&
        status != PlayerStatus::stop)
        return;
    const bool playing = status == PlayerStatus::play;
    playButton_->setIcon(QIcon(playing ? ":/imagens/pause" : ":/imagens/play"));
    currentTimeEdit_->setEnabled(!playing);
    totalTimeEdit_->setEnabled(!playing);
}

void TemporalView::statePlayer() {
    if (!scene_)
        return;
    if (scene_->getStatusPlayer() == PlayerStatus::play)
        scene_->pauseScene();
    else
        scene_->playScene();
}

void TemporalView::seekBackwardSync() {
    if (scene_)
        scene_->seekBackwardSync();
}

void TemporalView::seekForwardSync() {
    if (scene_)
        scene_->seekForwardSync();
}

void TemporalView::updateTime(int time) {
    if (!scene_)
        return;
    // Seeking by hand makes no syncs.
    scene_->setEnabledAddSync(false);
    scene_->setCurrentTime(time, true);
}

void TemporalView::sliderReleased() {
    if (!scene_)
        return;
    const int time = slider_->value();
    scene_->setEnabledAddSync(true);
    scene_->setCurrentTime(time, false);
    scene_->resetExecuteSyncs();
    // A scene moved by hand is paused there, not stopped at 0.
    if (scene_->getStatusPlayer() == PlayerStatus::stop)
        scene_->pauseScene();
}

void TemporalView::sliderPressed(int action) {
    if (!scene_ || (action != QAbstractSlider::SliderPageStepAdd &&
                    action != QAbstractSlider::SliderPageStepSub))
        return;
    if (scene_->getStatusPlayer() == PlayerStatus::stop)
        scene_->pauseScene();
    const QPoint at = sliderPressed_ ? sliderPress_ : slider_->mapFromGlobal(QCursor::pos());
    if (at.x() < 0 || at.x() > slider_->width())
        return;
    updateTime(timeAt(sceneTotal(), at.x(), slider_->width()));
    scene_->setEnabledAddSync(true);
    scene_->resetExecuteSyncs();
}

bool TemporalView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QPoint at = slider_->mapFromGlobal(static_cast<QHelpEvent*>(event)->globalPos());
        const bool over = at.x() >= 0 && at.x() <= slider_->width() && at.y() >= 0;
        setToolTip(over ? TimeText::timeString(timeAt(sceneTotal(), at.x(), slider_->width()))
                        : QString());
    }
    return QWidget::event(event);
}

bool TemporalView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == slider_) {
        if (event->type() == QEvent::MouseButtonPress) {
            sliderPress_ = static_cast<QMouseEvent*>(event)->pos();
            sliderPressed_ = true;
        } else if (event->type() == QEvent::MouseButtonRelease) {
            sliderPressed_ = false;
        }
    }
    return false;
}

int TemporalView::ask(int icon, const QString& title, const QString& text) {
    // The box takes the focus, and an edit would finish its editing again meanwhile.
    setDisconnections();
    QMessageBox box;
    box.setIcon(QMessageBox::Icon(icon));
    box.setWindowTitle(title);
    box.setText(text);
    if (icon == QMessageBox::Question) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setButtonText(QMessageBox::Yes, tr("Sim"));
        box.setButtonText(QMessageBox::No, tr("Não"));
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    const int answer = box.exec();
    setConnections();
    return answer;
}

void TemporalView::updateTextCurrentTime() {
    if (!scene_)
        return;
    const int current = editSeconds(currentTimeEdit_);
    const int total = editSeconds(totalTimeEdit_);
    if (current <= total) {
        slider_->setValue(current);
        scene_->setCurrentTime(current, false);
        scene_->resetExecuteSyncs();
        if (scene_->getStatusPlayer() == PlayerStatus::stop)
            scene_->pauseScene();
        return;
    }
    ask(QMessageBox::Information, tr("Tempo atual da cena"),
        tr("A cena \"%1\" possui um tempo total de \"%2\". O tempo atual não pode ser maior "
           "que o tempo total.")
            .arg(scene_->getLabel(), TimeText::timeString(total)));
    if (scene_)
        currentTimeEdit_->setText(TimeText::timeString(scene_->getCurrentTime()));
}

void TemporalView::updateTextTotalTime() {
    if (!scene_)
        return;
    const int total = editSeconds(totalTimeEdit_);
    const int old = scene_->getTotalTime();
    if (total > TimeText::kMaxSeconds) {
        // Fields over 59 count on, but the edits show two digits of hours at most.
        ask(QMessageBox::Information, tr("Tempo total da cena"),
            tr("O tempo total da cena \"%1\" não pode passar de \"%2\".")
                .arg(scene_->getLabel(), TimeText::timeString(TimeText::kMaxSeconds)));
        if (scene_)
            totalTimeEdit_->setText(TimeText::timeString(scene_->getTotalTime()));
        return;
    }
    if (total < old && scene_->hasNextSync(total)) {
        const int answer =
            ask(QMessageBox::Question, tr("Tempo total da cena"),
                tr("A mudança do tempo total da cena \"%1\" fará com que os eventos que ocorrem "
                   "do instante \"%2\" até \"%3\" sejam excluídos. Deseja prosseguir com essa "
                   "operação?\n")
                    .arg(scene_->getLabel(), totalTimeEdit_->text(), TimeText::timeString(old)));
        if (!scene_)
            return;
        if (answer != QMessageBox::Yes) {
            totalTimeEdit_->setText(TimeText::timeString(old));
            return;
        }
        dropSyncs(total, old);
    }
    if (total < editSeconds(currentTimeEdit_)) {
        scene_->setCurrentTime(total, false);
        scene_->resetExecuteSyncs();
    }
    slider_->setRange(0, total);
    scene_->setTotalTime(total);
}

void TemporalView::dropSyncs(int from, int to) {
    // The seconds after the new total up to the old one that hold syncs, in order.
    QList<int> times;
    for (Sync* sync : scene_->getAllSyncs()) {
        const int time = sync->getTime();
        if (time > from && time <= to && !times.contains(time))
            times << time;
    }
    std::sort(times.begin(), times.end());
    for (int time : times) {
        // Removing a media takes its syncs along: every sync is checked before its turn, and
        // removed as the object it is (the automatic starts share one id).
        QList<QPointer<Sync>> syncs;
        for (Sync* sync : scene_->getAllSyncs(time))
            syncs << sync;
        for (const QPointer<Sync>& sync : syncs) {
            if (sync && sync->getType() == SyncType::start && sync->getIsMedia())
                scene_->removeMedia(sync->getMediaTarget());
            if (sync)
                scene_->removeSyncObject(sync);
        }
    }
}

// ---------------------------------------------------------------- markers

MarkerItem* TemporalView::newMarker(Sync* sync, int y) {
    if (!sync || !scene_ || sync->getType() == SyncType::select)
        return nullptr;
    auto* marker = new MarkerItem(sync, y, scene_, markersScene_, document_);
    // Owned by the strip as well, so that a marker off the bar is still freed at the end.
    marker->setParent(this);
    marker->moveBy(0, y);
    setMarkerConnections(marker);
    return marker;
}

bool TemporalView::hasMarker(MarkerItem* marker) const {
    const Sync* sync = marker->getSync();
    for (const MarkerItem* other : sceneMarkers_) {
        const Sync* held = other->getSync();
        if (other->getId() == marker->getId() && held && sync &&
            held->getMediaTarget() == sync->getMediaTarget())
            return true;
    }
    return false;
}

bool TemporalView::isLaneTarget(const Sync* sync) const {
    return laneTarget_.set && sync->getMediaTarget() == laneTarget_.id &&
           sync->getIsMedia() == laneTarget_.isMedia;
}

bool TemporalView::holds(const MarkerItem* marker) const {
    return marker && (sceneMarkers_.contains(const_cast<MarkerItem*>(marker)) ||
                      mediaMarkers_.contains(const_cast<MarkerItem*>(marker)));
}

void TemporalView::insertMarker(Sync* sync) {
    if (!sync || !scene_)
        return;
    if (sync->getType() != SyncType::goTo && isLaneTarget(sync)) {
        if (MarkerItem* marker = newMarker(sync, kMediaLane)) {
            markersScene_->addItem(marker);
            mediaMarkers_.append(marker);
        }
    }
    if (MarkerItem* marker = newMarker(sync, kSceneLane)) {
        if (hasMarker(marker)) {
            delete marker; // never shown, nothing of it pending
            return;
        }
        markersScene_->addItem(marker);
        sceneMarkers_.append(marker);
    }
}

void TemporalView::retireMarker(MarkerItem* marker) {
    if (marker->scene())
        markersScene_->removeItem(marker);
    if (selectedMarker_ == marker)
        selectedMarker_ = nullptr;
    marker->retire();
}

void TemporalView::retireMarkers(const std::function<bool(const MarkerItem*)>& which,
                                 bool sceneLane) {
    for (QList<MarkerItem*>* lane : {&mediaMarkers_, &sceneMarkers_}) {
        if (lane == &sceneMarkers_ && !sceneLane)
            break;
        // Taken off the list first: a retired marker is never reached from the strip again.
        for (int i = lane->size() - 1; i >= 0; --i) {
            MarkerItem* marker = lane->at(i);
            if (which(marker)) {
                lane->removeAt(i);
                retireMarker(marker);
            }
        }
    }
}

void TemporalView::removeSyncMarkers(Sync* sync) {
    retireMarkers([sync](const MarkerItem* m) { return m->getSync() == sync || !m->getSync(); });
}

void TemporalView::updateSyncMarkers(Sync* sync) {
    removeSyncMarkers(sync);
    insertMarker(sync);
}

void TemporalView::removeMarker(int id) {
    retireMarkers([id](const MarkerItem* m) { return m->getId() == id; });
}

void TemporalView::updateMarker(int id) {
    removeMarker(id);
    if (!scene_)
        return;
    for (Sync* sync : scene_->getAllSyncs()) {
        if (sync->getId() == id)
            insertMarker(sync);
    }
}

void TemporalView::clearMarkers() {
    retireMarkers([](const MarkerItem*) { return true; });
    laneTarget_ = LaneTarget();
}

void TemporalView::loadMarkersScene(Scene* scene) {
    if (!scene || scene != scene_)
        return;
    clearMarkers();
    for (Sync* sync : scene->getAllSyncs()) {
        if (MarkerItem* marker = newMarker(sync, kSceneLane)) {
            if (hasMarker(marker)) {
                delete marker;
                continue;
            }
            markersScene_->addItem(marker);
            sceneMarkers_.append(marker);
        }
    }
    if (scene->hasCurrentMedia()) {
        if (Media* media = scene->getMedia(-1))
            loadMarkersMedia(media);
    }
}

void TemporalView::loadMarkersMedia(Media* media) {
    if (!media || !scene_)
        return;
    retireMarkers([](const MarkerItem*) { return true; }, false);
    laneTarget_ = {media->getId(), true, true};
    for (Sync* sync : scene_->getAllSyncsMedia(media->getId(), true))
        insertMarker(sync);
}

void TemporalView::loadMarkersTemplates(int id) {
    if (!scene_)
        return;
    retireMarkers([](const MarkerItem*) { return true; }, false);
    laneTarget_ = {id, false, true};
    for (Sync* sync : scene_->getAllSyncsMedia(id, false))
        insertMarker(sync);
}

void TemporalView::updateMarkersPositions() {
    clearMarkers();
    loadMarkersScene(scene_);
}

void TemporalView::activateMarker(int time) {
    if (!scene_)
        return;
    scene_->setCurrentTime(time, false);
    scene_->resetExecuteSyncs();
}

void TemporalView::showContextMenu(MarkerItem* marker) {
    // Asked for through the event queue: the marker may have left the bar meanwhile.
    if (!holds(marker))
        return;
    selectedMarker_ = marker;
    const SyncType type = marker->getMarkerType();
    deleteAction_->setEnabled(type == SyncType::set || type == SyncType::stop ||
                              type == SyncType::goTo);
    const QRectF rect = marker->getRect();
    const QPoint corner(qRound(rect.x() + rect.width()), qRound(rect.y() + rect.height()));
    // Not exec(): no nested loop runs while the bar may change under the menu.
    contextMenu_->popup(mapToGlobal(corner));
}

void TemporalView::deleteMarker() {
    MarkerItem* selected = selectedMarker_;
    if (!scene_ || !holds(selected))
        return;
    const int time = selected->getTime();
    // The syncs, not their ids, are gathered first: ids are shared, and each removal takes
    // markers off the lanes being walked.
    QList<QPointer<Sync>> syncs;
    for (const QList<MarkerItem*>* lane : {&sceneMarkers_, &mediaMarkers_}) {
        for (MarkerItem* marker : *lane) {
            Sync* sync = marker->getSync();
            // A start goes only with its media.
            if (sync && marker->getTime() == time && sync->getType() != SyncType::start &&
                !syncs.contains(sync))
                syncs << sync;
        }
    }
    for (const QPointer<Sync>& sync : syncs) {
        if (sync)
            scene_->removeSyncObject(sync);
    }
    if (scene_)
        scene_->resetExecuteSyncs();
    selectedMarker_ = nullptr;
}

} // namespace temporalView
} // namespace selvora

#include "app/Definitions.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <algorithm>
#include <iterator>

namespace selvora {

namespace {

// One row of a keyed enumeration: the stored number, its key (also the legend) and, where the
// interface shows another text, the Brazilian Portuguese legend.
struct KeyRow {
    int value;
    const char* key;
    const char* br;
};

template <size_t N> int valueOfKey(const KeyRow (&rows)[N], const QString& key, int unknown) {
    for (const KeyRow& row : rows) {
        if (key == QString::fromUtf8(row.key))
            return row.value;
    }
    return unknown;
}

template <size_t N> const KeyRow* rowOf(const KeyRow (&rows)[N], int value) {
    auto it = std::find_if(std::begin(rows), std::end(rows),
                           [value](const KeyRow& row) { return row.value == value; });
    return it == std::end(rows) ? nullptr : it;
}

template <size_t N> QString legendOf(const KeyRow (&rows)[N], int value, const char* other = "") {
    const KeyRow* row = rowOf(rows, value);
    return QString::fromUtf8(row ? row->key : other);
}

template <size_t N> QString legendBrOf(const KeyRow (&rows)[N], int value) {
    const KeyRow* row = rowOf(rows, value);
    return row ? QString::fromUtf8(row->br) : QString("");
}

// Identity inside [low, high], otherwise the fallback.
int inRange(int value, int low, int high, int fallback) {
    return value >= low && value <= high ? value : fallback;
}

const KeyRow kMediaTypeRows[] = {
    {0, "video", ""}, {1, "image", ""}, {2, "text", ""}, {3, "shape", ""}, {4, "audio", ""}};

const KeyRow kShapeTypeRows[] = {{0, "rectangle", ""},
                                 {1, "circle", ""},
                                 {2, "triangle", ""},
                                 {3, "arrow_right", ""},
                                 {4, "arrow_left", ""},
                                 {5, "arrow_top", ""},
                                 {6, "arrow_bottom", ""},
                                 {7, "rounded_rect", ""},
                                 {8, "diamond", ""},
                                 {9, "cube_left", ""},
                                 {10, "cube_right", ""},
                                 {11, "right_triangle1", ""},
                                 {12, "right_triangle2", ""},
                                 {13, "right_triangle3", ""},
                                 {14, "right_triangle4", ""},
                                 {15, "trapeze_top", ""},
                                 {16, "trapeze_bottom", ""},
                                 {17, "trapeze_right", ""},
                                 {18, "trapeze_left", ""},
                                 {19, "plus", ""},
                                 {20, "minus", ""},
                                 {21, "multiplication", ""},
                                 {22, "division", ""},
                                 {23, "equality", ""},
                                 {24, "inequality", ""},
                                 {25, "arrow_rect_bottom", ""},
                                 {26, "arrow_rect_top", ""},
                                 {27, "arrow_rect_right", ""},
                                 {28, "arrow_rect_left", ""},
                                 {29, "pentagon", ""},
                                 {30, "hexagon", ""},
                                 {31, "octogon", ""},
                                 {32, "inverted_triangle", ""},
                                 {33, "parallelogram_left", ""},
                                 {34, "star_four_points", ""},
                                 {35, "star_five_points", ""},
                                 {36, "star_six_points", ""},
                                 {37, "star_eight_points", ""},
                                 {38, "balloon1", ""},
                                 {39, "balloon2", ""},
                                 {40, "balloon3", ""},
                                 {41, "balloon4", ""},
                                 {42, "balloon_rect1", ""},
                                 {43, "balloon_rect2", ""},
                                 {44, "balloon_rect3", ""},
                                 {45, "balloon_rect4", ""},
                                 {46, "bracket_open", ""},
                                 {47, "bracket_close", ""},
                                 {48, "balloonThought1", ""},
                                 {49, "balloonThought2", ""},
                                 {50, "balloonThought3", ""},
                                 {51, "balloonThought4", ""}};

// Only the first twelve layouts have keys; the others exist in memory only.
const KeyRow kLayoutTypeRows[] = {{0, "layout1", ""},  {1, "layout2", ""},   {2, "layout3", ""},
                                  {3, "layout4", ""},  {4, "layout5", ""},   {5, "layout6", ""},
                                  {6, "layout7", ""},  {7, "layout8", ""},   {8, "layout9", ""},
                                  {9, "layout10", ""}, {10, "layout11", ""}, {11, "layout12", ""}};

const KeyRow kHoverTypeRows[] = {{0, "grow", "aumentar"},   {1, "shrink", "encolher"},
                                 {2, "push", "empurrar"},   {3, "pop", "puxar"},
                                 {4, "float", "subir"},     {5, "sink", "cair"},
                                 {6, "backward", "recuar"}, {7, "forward", "avançar"},
                                 {8, "fade", "preencher"},  {9, "border", "contornar"}};

const KeyRow kButtonTypeRows[] = {{49, "RED", "Vermelho"},
                                  {50, "GREEN", "Verde"},
                                  {51, "YELLOW", "Amarelo"},
                                  {52, "BLUE", "Azul"},
                                  {0x1000005, "ENTER", "Enter"},
                                  {0x1000012, "CURSOR_LEFT", "Seta para esquerda"},
                                  {0x1000013, "CURSOR_UP", "Seta para cima"},
                                  {0x1000014, "CURSOR_RIGHT", "Seta para direita"},
                                  {0x1000015, "CURSOR_DOWN", "Seta para baixo"}};

const KeyRow kTextTypeRows[] = {{0, "none", ""},
                                {1, "bold", ""},
                                {2, "italic", ""},
                                {3, "underline", ""},
                                {4, "bold_italic", ""},
                                {5, "bold_underline", ""},
                                {6, "italic_underline", ""},
                                {7, "bold_italic_underline", ""}};

const KeyRow kTextAlignRows[] = {
    {1, "left", ""}, {2, "right", ""}, {4, "center", ""}, {8, "justify", ""}};

const KeyRow kOutlineWidthRows[] = {{0, "0.25pt", ""}, {1, "0.5pt", ""}, {2, "0.75pt", ""},
                                    {3, "1pt", ""},    {4, "1.5pt", ""}, {5, "2.25pt", ""},
                                    {6, "3pt", ""},    {7, "4.5pt", ""}, {8, "6pt", ""}};

const KeyRow kOutlineStyleRows[] = {{0, "Contínuo", ""},
                                    {1, "Tracejado", ""},
                                    {2, "Pontilhado", ""},
                                    {3, "1 traço 1 ponto", ""},
                                    {4, "1 traço 2 pontos", ""}};

const KeyRow kSyncTypeRows[] = {
    {0, "start", ""}, {1, "set", ""}, {2, "stop", ""}, {3, "select", ""}, {4, "goto", ""}};

const KeyRow kActionTypeRows[] = {
    {0, "createScene", ""},      {1, "removeScene", ""},
    {2, "alterSceneOrder", ""},  {3, "alterSceneTotalTime", ""},
    {4, "alterSceneLabel", ""},  {5, "createMedia", ""},
    {6, "removeMedia", ""},      {7, "createSync", ""},
    {8, "removeSync", ""},       {9, "syncStartStopSpecialCondition", ""},
    {10, "alterMediaLabel", ""}, {11, "alterMediaProperties", ""},
    {12, "alterSyncTime", ""},   {13, "alterSyncProperties", ""}};

QSize screenOverride;

QStringList splitExtensions(const char* literal) {
    return QString::fromLatin1(literal).split(' ', Qt::SkipEmptyParts);
}

double screenScaled(bool horizontal, double reference, double value) {
    const double screen =
        horizontal ? Definitions::getScreenWidth() : Definitions::getScreenHeight();
    return screen * value / reference;
}

double byWidth(double value) {
    return screenScaled(true, 1600, value);
}
double byHeight(double value) {
    return screenScaled(false, 900, value);
}

} // namespace

// kSpatialResizingType: the key of value 0 is misspelt in the files and stays so.
Definitions::kSpatialResizingType Definitions::getkSpatialResizingType(int value) {
    return value == 1 ? kSpatialResizingType::spatialResizingRegion
                      : kSpatialResizingType::spatialResizingMedia;
}

Definitions::kSpatialResizingType Definitions::getkSpatialResizingType(const QString& key) {
    if (key == QLatin1String("spatialResizingRegion"))
        return kSpatialResizingType::spatialResizingRegion;
    return kSpatialResizingType::spatialResizingMedia; // "spatailResizingMedia" and unknown
}

QString Definitions::getkSpatialResizingTypeLegend(int value) {
    switch (value) {
    case 0:
        return QStringLiteral("spatialResizingMedia");
    case 1:
        return QStringLiteral("spatialResizingRegion");
    default:
        return QString("");
    }
}

Definitions::kMediaType Definitions::getkMediaType(int value) {
    return static_cast<kMediaType>(inRange(value, 0, 4, 2));
}
Definitions::kMediaType Definitions::getkMediaType(const QString& key) {
    return static_cast<kMediaType>(valueOfKey(kMediaTypeRows, key, 2));
}
QString Definitions::getkMediaTypeLegend(int value) {
    return legendOf(kMediaTypeRows, value);
}

Definitions::kShapeType Definitions::getkShapeType(int value) {
    return static_cast<kShapeType>(inRange(value, 1, 51, 0));
}
Definitions::kShapeType Definitions::getkShapeType(const QString& key) {
    return static_cast<kShapeType>(valueOfKey(kShapeTypeRows, key, 50));
}
QString Definitions::getkShapeTypeLegend(int value) {
    return legendOf(kShapeTypeRows, value, "rectangle");
}

Definitions::kLayoutType Definitions::getkLayoutType(int value) {
    return static_cast<kLayoutType>(inRange(value, 1, 11, 0));
}
Definitions::kLayoutType Definitions::getkLayoutType(const QString& key) {
    return static_cast<kLayoutType>(valueOfKey(kLayoutTypeRows, key, 10));
}
QString Definitions::getkLayoutTypeLegend(int value) {
    return legendOf(kLayoutTypeRows, value, "layout1");
}

Definitions::kHoverType Definitions::getkHoverType(int value) {
    return static_cast<kHoverType>(inRange(value, 1, 9, 0));
}
Definitions::kHoverType Definitions::getkHoverType(const QString& key) {
    return static_cast<kHoverType>(valueOfKey(kHoverTypeRows, key, 8));
}
QString Definitions::getkHoverTypeLegend(int value) {
    return legendOf(kHoverTypeRows, value);
}
QString Definitions::getkHoverTypeLegendBr(int value) {
    return legendBrOf(kHoverTypeRows, value);
}

Definitions::kMediaStatus Definitions::getkMediaStatus() {
    return kMediaStatus::undefined;
}
Definitions::kMediaStatus Definitions::getkMediaStatus(int value) {
    return static_cast<kMediaStatus>(inRange(value, 0, 1, 2));
}
QString Definitions::getkMediaStatusLegend(int value) {
    switch (value) {
    case 0:
        return QStringLiteral("Midia fisica.");
    case 1:
        return QStringLiteral("Midia virtual.");
    default:
        return QStringLiteral("Tipo não definido.");
    }
}

Definitions::kButtonType Definitions::getkButtonType(int value) {
    if (rowOf(kButtonTypeRows, value))
        return static_cast<kButtonType>(value);
    // Numbers between the valid codes round to a neighbouring key.
    if (value < 50)
        return kButtonType::GREEN;
    if (value < 0x1000005)
        return kButtonType::YELLOW;
    if (value < 0x1000013)
        return kButtonType::CURSOR_UP;
    return kButtonType::CURSOR_RIGHT;
}
Definitions::kButtonType Definitions::getkButtonType(const QString& key) {
    return static_cast<kButtonType>(valueOfKey(kButtonTypeRows, key, 0x1000015));
}
QString Definitions::getkButtonTypeLegend(int value) {
    return legendOf(kButtonTypeRows, value);
}
QString Definitions::getkButtonTypeLegendBr(int value) {
    return legendBrOf(kButtonTypeRows, value);
}

Definitions::kTextType Definitions::getkTextType(int value) {
    return static_cast<kTextType>(inRange(value, 0, 7, 0));
}
Definitions::kTextType Definitions::getkTextType(const QString& key) {
    return static_cast<kTextType>(valueOfKey(kTextTypeRows, key, 6));
}
QString Definitions::getkTextTypeLegend(int value) {
    return legendOf(kTextTypeRows, value);
}

Definitions::kTextAlign Definitions::getkTextAlign(int value) {
    if (rowOf(kTextAlignRows, value))
        return static_cast<kTextAlign>(value);
    return value < 1 ? kTextAlign::none : kTextAlign::center;
}
Definitions::kTextAlign Definitions::getkTextAlign(const QString& key) {
    return static_cast<kTextAlign>(valueOfKey(kTextAlignRows, key, 2));
}
QString Definitions::getkTextAlignLegend(int value) {
    return legendOf(kTextAlignRows, value);
}

Definitions::kOutlineWidth Definitions::getkOutlineWidth(int value) {
    return static_cast<kOutlineWidth>(inRange(value, 0, 8, 0));
}
Definitions::kOutlineWidth Definitions::getkOutlineWidth(const QString& key) {
    return static_cast<kOutlineWidth>(valueOfKey(kOutlineWidthRows, key, 6));
}
QString Definitions::getkOutlineWidthLegend(int value) {
    return legendOf(kOutlineWidthRows, value);
}

Definitions::kOutlineStyle Definitions::getkOutlineStyle(int value) {
    return static_cast<kOutlineStyle>(inRange(value, 0, 4, 0));
}
Definitions::kOutlineStyle Definitions::getkOutlineStyle(const QString& key) {
    return static_cast<kOutlineStyle>(valueOfKey(kOutlineStyleRows, key, 2));
}
QString Definitions::getkOutlineStyleLegend(int value) {
    return legendOf(kOutlineStyleRows, value);
}

Definitions::kSyncType Definitions::getkSyncType(int value) {
    return static_cast<kSyncType>(inRange(value, 0, 4, 1));
}
Definitions::kSyncType Definitions::getkSyncType(const QString& key) {
    return static_cast<kSyncType>(valueOfKey(kSyncTypeRows, key, 1));
}
QString Definitions::getkSyncTypeLegend(int value) {
    return legendOf(kSyncTypeRows, value, "set");
}

Definitions::kActionType Definitions::getkActionType(int value) {
    return static_cast<kActionType>(inRange(value, 1, 13, 0));
}
Definitions::kActionType Definitions::getkActionType(const QString& key) {
    return static_cast<kActionType>(valueOfKey(kActionTypeRows, key, 12));
}
QString Definitions::getkActionTypeLegend(int value) {
    return legendOf(kActionTypeRows, value, "createScene");
}

QStringList Definitions::getVideoExtensions() {
    return splitExtensions("mp4");
}
QStringList Definitions::getImageExtensions() {
    return splitExtensions("jpg jpeg png");
}
QStringList Definitions::getAudioExtensions() {
    return splitExtensions("mp3");
}
QStringList Definitions::getTextExtensions() {
    return splitExtensions("txt srt");
}

void Definitions::registerMetaTypes() {
    qRegisterMetaType<kMediaType>("selvora::Definitions::kMediaType");
    qRegisterMetaType<kSyncType>("selvora::Definitions::kSyncType");
    qRegisterMetaType<kPlayerStatus>("selvora::Definitions::kPlayerStatus");
    qRegisterMetaType<kLayoutType>("selvora::Definitions::kLayoutType");
    qRegisterMetaType<kTypeExport>("selvora::Definitions::kTypeExport");
    qRegisterMetaType<kActionType>("selvora::Definitions::kActionType");
    qRegisterMetaType<kThreadOperations>("selvora::Definitions::kThreadOperations");
    qRegisterMetaType<kTemplateType>("selvora::Definitions::kTemplateType");
    qRegisterMetaType<QHash<QString, QString>>("QHash<QString,QString>");
}

void Definitions::setScreenSizeOverride(const QSize& size) {
    screenOverride = size;
}

static QSize primaryScreenSize() {
    if (!screenOverride.isEmpty())
        return screenOverride;
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        if (QScreen* screen = QGuiApplication::primaryScreen())
            return screen->geometry().size();
    }
    // Without a display (a command-line tool) the reference screen stands in.
    return QSize(1600, 900);
}

double Definitions::getScreenWidth() {
    return primaryScreenSize().width();
}
double Definitions::getScreenHeight() {
    return primaryScreenSize().height();
}

QString Definitions::getScreenResolution() {
    const double ratio =
        static_cast<double>(static_cast<float>(getScreenWidth() / getScreenHeight()));
    if (ratio >= 1.7)
        return QStringLiteral("16x9");
    if (ratio >= 1.6)
        return QStringLiteral("16x10");
    if (ratio >= 1.3)
        return QStringLiteral("4x3");
    return QString();
}

int Definitions::getViewWidth() {
    const QString resolution = getScreenResolution();
    double percent = 60;
    if (resolution == QLatin1String("16x9"))
        percent = 45;
    else if (resolution == QLatin1String("16x10"))
        percent = 55;
    else if (resolution == QLatin1String("4x3"))
        percent = 40;
    return static_cast<int>(getScreenWidth() * percent / 100);
}

int Definitions::getViewHeight() {
    return getViewWidth() * 9 / 16;
}

double Definitions::getTemporalViewWidth() {
    const QString resolution = getScreenResolution();
    const int view = getViewWidth();
    if (resolution == QLatin1String("16x9"))
        return view * 55 / 100;
    if (resolution == QLatin1String("4x3"))
        return view / 5;
    return view * 60 / 100;
}

int Definitions::getMediaWidth(kMediaType type) {
    switch (type) {
    case kMediaType::video:
        return getViewWidth();
    case kMediaType::text:
        return getViewWidth() / 3;
    case kMediaType::audio:
        return 0;
    default:
        return getViewWidth() / 6;
    }
}

int Definitions::getMediaHeight(kMediaType type) {
    switch (type) {
    case kMediaType::video:
        return getViewHeight();
    case kMediaType::text:
        return static_cast<int>(getViewHeight() / 8.56);
    case kMediaType::audio:
        return 0;
    default:
        return static_cast<int>(getViewHeight() / 3.45);
    }
}

double Definitions::getPreviewWidth() {
    return getScreenWidth();
}
double Definitions::getPreviewHeight() {
    return getPreviewWidth() * 9 * 0.0625;
}
double Definitions::getPdfBoxWidth() {
    return getScreenWidth() / 2.5;
}
double Definitions::getPdfBoxHeight() {
    return getScreenHeight() / 2.5;
}
double Definitions::getMediaMinWidth() {
    return byWidth(20);
}
double Definitions::getMediaMinHeight() {
    return byHeight(20);
}
double Definitions::getSlideListMinWidth() {
    return byWidth(280);
}
double Definitions::getSlideListMinHeight() {
    return byHeight(400);
}
double Definitions::getSlideListItemWidth() {
    return byWidth(40);
}
double Definitions::getSlideListItemHeight() {
    return byHeight(62);
}
double Definitions::getLibrarySceneWidth() {
    return byWidth(200);
}
double Definitions::getLibrarySceneHeight() {
    return byHeight(200);
}
double Definitions::getLibraryItemWidth() {
    return byWidth(170);
}
double Definitions::getLibraryItemHeight() {
    return byHeight(170);
}
double Definitions::getLibraryIconWidth() {
    return byWidth(85);
}
double Definitions::getLibraryIconHeight() {
    return byHeight(85);
}
double Definitions::getFeatureWidth() {
    return byWidth(200);
}
double Definitions::getFeatureHeight() {
    return byHeight(300);
}
double Definitions::getTemporalViewHeight() {
    return byHeight(70);
}
double Definitions::getButtonWidth() {
    return getScreenWidth() * 4 / 100;
}
double Definitions::getButtonHeight() {
    return getButtonWidth() * 91.52 / 100;
}
double Definitions::getSubButtonWidth() {
    return getButtonWidth() * 30 / 100;
}
double Definitions::getSubButtonHeight() {
    return getSubButtonWidth() * 97.82 / 100;
}

} // namespace selvora

#ifndef SELVORA_DEFINITIONS_H
#define SELVORA_DEFINITIONS_H

#include <QHash>
#include <QMetaType>
#include <QSize>
#include <QString>
#include <QStringList>

namespace selvora {

// The shared vocabulary: enumerations with their stored keys and display legends, the accepted
// file extensions, and every size of the interface, derived from the primary screen.
//
// The string lookups never fail: an unknown key gives a fixed value per enumeration, so that a
// damaged project file still loads. Those values look arbitrary and are kept on purpose.
class Definitions {
public:
    enum class kSpatialResizingType { spatialResizingMedia = 0, spatialResizingRegion = 1 };
    enum class kMediaType { video = 0, image = 1, text = 2, shape = 3, audio = 4 };
    enum class kShapeType {
        rectangle = 0,
        circle,
        triangle,
        arrow_right,
        arrow_left,
        arrow_top,
        arrow_bottom,
        rounded_rect,
        diamond,
        cube_left,
        cube_right,
        right_triangle1,
        right_triangle2,
        right_triangle3,
        right_triangle4,
        trapeze_top,
        trapeze_bottom,
        trapeze_right,
        trapeze_left,
        plus,
        minus,
        multiplication,
        division,
        equality,
        inequality,
        arrow_rect_bottom,
        arrow_rect_top,
        arrow_rect_right,
        arrow_rect_left,
        pentagon,
        hexagon,
        octogon,
        inverted_triangle,
        parallelogram_left,
        star_four_points,
        star_five_points,
        star_six_points,
        star_eight_points,
        balloon1,
        balloon2,
        balloon3,
        balloon4,
        balloon_rect1,
        balloon_rect2,
        balloon_rect3,
        balloon_rect4,
        bracket_open,
        bracket_close,
        balloonThought1,
        balloonThought2,
        balloonThought3,
        balloonThought4
    };
    enum class kLayoutType {
        layout1 = 0,
        layout2,
        layout3,
        layout4,
        layout5,
        layout6,
        layout7,
        layout8,
        layout9,
        layout10,
        layout11,
        layout12,
        layout13,
        layout14,
        layout15,
        layout16,
        layout17,
        layout18
    };
    enum class kHoverType {
        grow = 0,
        shrink,
        push,
        pop,
        floatUp,
        sink,
        backward,
        forward,
        fade,
        border
    };
    enum class kMediaStatus { physical = 0, virtualMedia = 1, undefined = 2 };
    enum class kButtonType {
        RED = 49,
        GREEN = 50,
        YELLOW = 51,
        BLUE = 52,
        ENTER = 0x1000005,
        CURSOR_LEFT = 0x1000012,
        CURSOR_UP = 0x1000013,
        CURSOR_RIGHT = 0x1000014,
        CURSOR_DOWN = 0x1000015
    };
    enum class kTextType {
        none = 0,
        bold,
        italic,
        underline,
        bold_italic,
        bold_underline,
        italic_underline,
        bold_italic_underline
    };
    enum class kTextAlign { none = 0, left = 1, right = 2, center = 4, justify = 8 };
    enum class kOutlineWidth { w025 = 0, w05, w075, w1, w15, w225, w3, w45, w6 };
    enum class kOutlineStyle { solid = 0, dash, dot, dashDot, dashDotDot };
    enum class kSyncType { start = 0, set = 1, stop = 2, select = 3, goTo = 4 };
    enum class kActionType {
        createScene = 0,
        removeScene,
        alterSceneOrder,
        alterSceneTotalTime,
        alterSceneLabel,
        createMedia,
        removeMedia,
        createSync,
        removeSync,
        syncStartStopSpecialCondition,
        alterMediaLabel,
        alterMediaProperties,
        alterSyncTime,
        alterSyncProperties
    };
    enum class kPlayerStatus { play = 0, pause = 1, stop = 2 };
    enum class kThreadOperations { save = 0, load, exportHTML, exportNCL, publish };
    enum class kTypeExport { HTML = 0, NCL = 1 };
    enum class kTemplateType { templateA = 0, templateB = 1 };

    static constexpr int kShapeCount = 52;
    static constexpr int kLayoutCount = 18;

    Definitions() = default;

    static kSpatialResizingType getkSpatialResizingType(int value);
    static kSpatialResizingType getkSpatialResizingType(const QString& key);
    static QString getkSpatialResizingTypeLegend(int value);

    static kMediaType getkMediaType(int value);
    static kMediaType getkMediaType(const QString& key);
    static QString getkMediaTypeLegend(int value);

    static kShapeType getkShapeType(int value);
    static kShapeType getkShapeType(const QString& key);
    static QString getkShapeTypeLegend(int value);

    static kLayoutType getkLayoutType(int value);
    static kLayoutType getkLayoutType(const QString& key);
    static QString getkLayoutTypeLegend(int value);

    static kHoverType getkHoverType(int value);
    static kHoverType getkHoverType(const QString& key);
    static QString getkHoverTypeLegend(int value);
    static QString getkHoverTypeLegendBr(int value);

    static kMediaStatus getkMediaStatus();
    static kMediaStatus getkMediaStatus(int value);
    static QString getkMediaStatusLegend(int value);

    static kButtonType getkButtonType(int value);
    static kButtonType getkButtonType(const QString& key);
    static QString getkButtonTypeLegend(int value);
    static QString getkButtonTypeLegendBr(int value);

    static kTextType getkTextType(int value);
    static kTextType getkTextType(const QString& key);
    static QString getkTextTypeLegend(int value);

    static kTextAlign getkTextAlign(int value);
    static kTextAlign getkTextAlign(const QString& key);
    static QString getkTextAlignLegend(int value);

    static kOutlineWidth getkOutlineWidth(int value);
    static kOutlineWidth getkOutlineWidth(const QString& key);
    static QString getkOutlineWidthLegend(int value);

    static kOutlineStyle getkOutlineStyle(int value);
    static kOutlineStyle getkOutlineStyle(const QString& key);
    static QString getkOutlineStyleLegend(int value);

    static kSyncType getkSyncType(int value);
    static kSyncType getkSyncType(const QString& key);
    static QString getkSyncTypeLegend(int value);

    static kActionType getkActionType(int value);
    static kActionType getkActionType(const QString& key);
    static QString getkActionTypeLegend(int value);

    // Plain constants.
    static int getMediaLeft() { return 0; }
    static int getMediaTop() { return 0; }
    static int getMediaTransparency() { return 0; }
    static int getSpatialEventType() { return 1001; }
    static int getMaxRecentFiles() { return 5; }

    static QStringList getVideoExtensions();
    static QStringList getImageExtensions();
    static QStringList getAudioExtensions();
    static QStringList getTextExtensions();

    // Geometry, read anew from the primary screen at every call.
    static double getScreenWidth();
    static double getScreenHeight();
    static QString getScreenResolution();
    static int getViewWidth();
    static int getViewHeight();
    static double getTemporalViewWidth();
    static int getMediaWidth(kMediaType type);
    static int getMediaHeight(kMediaType type);
    static double getPreviewWidth();
    static double getPreviewHeight();
    static double getPdfBoxWidth();
    static double getPdfBoxHeight();
    static double getMediaMinWidth();
    static double getMediaMinHeight();
    static double getSlideListMinWidth();
    static double getSlideListMinHeight();
    static double getSlideListItemWidth();
    static double getSlideListItemHeight();
    static double getLibrarySceneWidth();
    static double getLibrarySceneHeight();
    static double getLibraryItemWidth();
    static double getLibraryItemHeight();
    static double getLibraryIconWidth();
    static double getLibraryIconHeight();
    static double getFeatureWidth();
    static double getFeatureHeight();
    static double getTemporalViewHeight();
    static double getButtonWidth();
    static double getButtonHeight();
    static double getSubButtonWidth();
    static double getSubButtonHeight();

    // Seam for tests and tools: pretend the primary screen has this size. An empty size restores
    // the real screen.
    static void setScreenSizeOverride(const QSize& size);

    // Makes the enumerations usable in queued connections and signal spies.
    static void registerMetaTypes();
};

} // namespace selvora

Q_DECLARE_METATYPE(selvora::Definitions::kMediaType)
Q_DECLARE_METATYPE(selvora::Definitions::kSyncType)
Q_DECLARE_METATYPE(selvora::Definitions::kPlayerStatus)
Q_DECLARE_METATYPE(selvora::Definitions::kLayoutType)
Q_DECLARE_METATYPE(selvora::Definitions::kTypeExport)
Q_DECLARE_METATYPE(selvora::Definitions::kActionType)
Q_DECLARE_METATYPE(selvora::Definitions::kThreadOperations)
Q_DECLARE_METATYPE(selvora::Definitions::kTemplateType)

#endif

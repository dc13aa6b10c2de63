#ifndef SELVORA_TOOLS_ICONCATALOGUE_H
#define SELVORA_TOOLS_ICONCATALOGUE_H

#include <QImage>
#include <QSize>
#include <QString>
#include <QVector>

#include <functional>

class QPainter;

namespace selvora {
namespace tools {

// Every picture of the program, by the alias under which the resources hold it, with the code
// that draws it. Square icons are drawn in a box of 128 units whatever their pixel size, so that
// one stroke weight serves them all.
class IconCatalogue {
public:
    struct Icon {
        QString name;
        QSize size;
        std::function<void(QPainter&)> draw;
        // Drawn in the 128-unit box and scaled to `size`; otherwise in pixels.
        bool unitBox = true;
        // Turned to greys after drawing.
        bool grey = false;
    };

    static QVector<Icon> all();
    // The application icon at the sizes of the desktop's hicolor theme, each named by its path
    // in that theme ("16x16/apps/selvora"), for installation beside the program.
    static QVector<Icon> hicolor();
    static QImage render(const Icon& icon);
    // One sheet with every icon at the sizes the program shows them, each with its name.
    static QImage contactSheet(const QVector<Icon>& icons);
};

} // namespace tools
} // namespace selvora

#endif

#ifndef SELVORA_FEATURE_TEXTTAB_H
#define SELVORA_FEATURE_TEXTTAB_H

#include <QWidget>

class QComboBox;
class QFontComboBox;
class QPushButton;

namespace selvora {
namespace feature {

// The tab "Texto": font, size, paragraph alignment, colour and style of a text or a shape's
// caption. The panel reads and sets the controls directly; the tab only builds them.
class TextTab : public QWidget {
    Q_OBJECT
public:
    // Font sizes beyond these can be typed; the size stays a whole number of points.
    static constexpr int kMinFontSize = 1;
    static constexpr int kMaxFontSize = 999;

    explicit TextTab(QWidget* parent = nullptr);

    QFontComboBox* font = nullptr;
    QComboBox* size = nullptr;
    QPushButton* justify = nullptr;
    QPushButton* alignLeft = nullptr;
    QPushButton* alignCenter = nullptr;
    QPushButton* alignRight = nullptr;
    QPushButton* colour = nullptr;
    QPushButton* bold = nullptr;
    QPushButton* italic = nullptr;
    QPushButton* underline = nullptr;
};

} // namespace feature
} // namespace selvora

#endif

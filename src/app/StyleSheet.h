#ifndef SELVORA_APP_STYLESHEET_H
#define SELVORA_APP_STYLESHEET_H

#include <QString>

class QApplication;

namespace selvora {

// The look of the program: the stylesheet file "/QSS/selvora.css" beside the executable, or, if
// that is missing, the orange tool tips alone.
void applyCSS(QApplication* application);

// Applies the stylesheet at this path; the fallback rule when it cannot be read. Returns
// whether the file was used.
bool applyStyleSheetFile(QApplication* application, const QString& fileName);

QString fallbackStyleSheet();

} // namespace selvora

#endif

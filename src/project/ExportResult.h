#ifndef SELVORA_PROJECT_EXPORTRESULT_H
#define SELVORA_PROJECT_EXPORTRESULT_H

#include <QString>

namespace selvora {
namespace project {

// What an export without the conversion service reports: whether it wrote its file, the file,
// and a sentence for the user.
struct ExportResult {
    bool ok = false;
    QString path;
    QString message;
};

} // namespace project
} // namespace selvora

#endif

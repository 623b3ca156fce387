#pragma once

#include <QString>

namespace zv::app {

// Asks the desktop to open a file, a web address or a mail link with its default handler. Returns
// the shell's result number: above 32 means it was opened (on Windows the value ShellExecute
// gives; elsewhere 42 for success and 0 for failure, so callers test it the same way).
int OpenDocument(const QString& target);

}  // namespace zv::app

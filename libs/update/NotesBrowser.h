#pragma once

#include <QTextBrowser>

namespace HalcUpdate {

// Shows release notes written in Markdown; links open in the browser.
class NotesBrowser : public QTextBrowser {
    Q_OBJECT
public:
    explicit NotesBrowser(QWidget *parent = nullptr);

    // Links take the palette's highlight colour: the default link blue cannot be read on a dark theme.
    void setNotes(const QString &markdown);
};

} // namespace HalcUpdate

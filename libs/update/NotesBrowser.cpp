#include "update/NotesBrowser.h"

#include <QList>
#include <QTextBlock>
#include <QTextCursor>

#include <utility>

namespace HalcUpdate {

NotesBrowser::NotesBrowser(QWidget *parent)
    : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
}

void NotesBrowser::setNotes(const QString &markdown)
{
    setMarkdown(markdown);
    // The Markdown reader colours links when it reads them, from the application's palette.
    QList<std::pair<int, int>> links; // start, end; collected first, since colouring splits fragments
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isAnchor())
                links.append({it.fragment().position(), it.fragment().position() + it.fragment().length()});
        }
    }
    QTextCharFormat linkColour;
    linkColour.setForeground(palette().color(QPalette::Highlight));
    for (const auto &[start, end] : links) {
        QTextCursor cursor(document());
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(linkColour);
    }
}

} // namespace HalcUpdate

#include "gui/ui/elidedcheckbox.h"

#include <QStyleOptionButton>

namespace qv {

ElidedCheckBox::ElidedCheckBox(QWidget *parent) : QCheckBox(parent)
{
    // The row's width decides; the text never widens the panel.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedCheckBox::setFullText(const QString &text)
{
    full = text;
    setToolTip(text);
    elide();
}

QSize ElidedCheckBox::minimumSizeHint() const
{
    return QSize(0, QCheckBox::minimumSizeHint().height());
}

void ElidedCheckBox::resizeEvent(QResizeEvent *event)
{
    QCheckBox::resizeEvent(event);
    elide();
}

void ElidedCheckBox::showEvent(QShowEvent *event)
{
    QCheckBox::showEvent(event);
    elide();
}

// Only a shown box has a width worth eliding to; a hidden one keeps it all.
void ElidedCheckBox::elide()
{
    if (!isVisible()) {
        if (text() != full)
            setText(full);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).width();
    const QString shown = room > 0 ? fontMetrics().elidedText(full, Qt::ElideMiddle, room) : full;
    if (shown != text())
        setText(shown);
}

}  // namespace qv

// A check box whose text is shortened in the middle ("abs. Feuchte…Zone II")
// when the row is too narrow for it, so that two long names that differ at
// their end still look different; the full text is its tool tip.
#pragma once

#include <QCheckBox>

namespace qv {

class ElidedCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit ElidedCheckBox(QWidget *parent = nullptr);

    void setFullText(const QString &text);
    const QString &fullText() const { return full; }
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void elide();

    QString full;
};

}  // namespace qv

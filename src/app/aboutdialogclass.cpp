#include "app/aboutdialogclass.h"

#include "core/base/version.h"
#include "gui/ui/dialogseam.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QTextBrowser>
#include <QToolButton>

namespace {

constexpr int kCorner = 7;

QLabel *pictureLabel(const char *resource, int size, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setPixmap(QIcon(QString::fromLatin1(resource)).pixmap(size, size));
    label->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    return label;
}

}  // namespace

AboutDialogClass::AboutDialogClass(qv::Language language, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("aboutDialog"));
    setWindowTitle(tr("About Quorvanta"));
    setWindowIcon(QIcon(QStringLiteral(":/new/prefix1/resources/about.png")));
    resize(560, 400);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int i = 0; i < 4; ++i) {
        corner[i] = new QToolButton(this);
        corner[i]->setObjectName(QStringLiteral("buttonCorner%1").arg(i + 1));
        corner[i]->setFixedSize(kCorner, kCorner);
        corner[i]->setAutoRaise(true);
        corner[i]->setFocusPolicy(Qt::NoFocus);
        corner[i]->setStyleSheet(QStringLiteral("QToolButton { border: none; background: transparent; }"));
        connect(corner[i], &QToolButton::clicked, this, &AboutDialogClass::s_cornerPressed);
    }
    grid->addWidget(corner[0], 0, 0, Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(corner[1], 0, 2, Qt::AlignRight | Qt::AlignTop);
    grid->addWidget(corner[2], 2, 2, Qt::AlignRight | Qt::AlignBottom);
    grid->addWidget(corner[3], 2, 0, Qt::AlignLeft | Qt::AlignBottom);

    auto *body = new QWidget(this);
    auto *layout = new QGridLayout(body);
    layout->setContentsMargins(12, 4, 12, 4);
    layout->setHorizontalSpacing(16);
    layout->addWidget(pictureLabel(":/new/prefix1/resources/Quorvanta.png", 96, body), 0, 0, 3, 1);
    auto *name = new QLabel(QStringLiteral("<b style=\"font-size:18pt\">Quorvanta</b>"), body);
    name->setObjectName(QStringLiteral("labelName"));
    layout->addWidget(name, 0, 1);
    auto *version = new QLabel(tr("Version %1").arg(QString::fromLatin1(QV_VERSION_STRING)), body);
    version->setObjectName(QStringLiteral("labelVersion"));
    layout->addWidget(version, 1, 1);
    auto *page = new QTextBrowser(body);
    page->setObjectName(QStringLiteral("aboutPage"));
    page->setOpenExternalLinks(true);
    QFile html(m_pagePath(language));
    if (html.open(QIODevice::ReadOnly))
        page->setHtml(QString::fromUtf8(html.readAll()));
    layout->addWidget(page, 2, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, body);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 3, 0, 1, 2);
    grid->addWidget(body, 1, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
}

QString AboutDialogClass::m_pagePath(qv::Language language)
{
    return language == qv::Language::German ? QStringLiteral(":/new/prefix1/resources/about_de.html")
                                            : QStringLiteral(":/new/prefix1/resources/about_en.html");
}

void AboutDialogClass::s_cornerPressed()
{
    for (int i = 0; i < 4; ++i) {
        if (sender() == corner[i]) {
            OracleDialogClass oracle(i, this);
            qv::g_execDialog(oracle);
            return;
        }
    }
}

OracleDialogClass::OracleDialogClass(int saying, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("oracleDialog"));
    setWindowTitle(tr("The Dew Point Oracle"));
    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->addWidget(pictureLabel(":/new/prefix1/resources/oracle.png", 96, this), 0, 0, 2, 1);
    auto *heading = new QLabel(QStringLiteral("<b>") + tr("The oracle has spoken:") + QStringLiteral("</b>"), this);
    layout->addWidget(heading, 0, 1);
    auto *text = new QLabel(m_saying(saying), this);
    text->setObjectName(QStringLiteral("labelSaying"));
    text->setWordWrap(true);
    text->setMinimumWidth(300);
    layout->addWidget(text, 1, 1);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("Thank you, Oracle"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 2, 0, 1, 2);
}

int OracleDialogClass::m_sayingCount()
{
    return 4;
}

QString OracleDialogClass::m_saying(int index)
{
    switch (index) {
    case 0:
        return tr("The dew point never sleeps. It waits patiently for you to open the cellar window on a warm July "
                  "afternoon.");
    case 1:
        return tr("A relative humidity of 100 % is not a high score. Please stop trying to beat it.");
    case 2:
        return tr("Warm air holds more water than cold air. So does a warm cup of coffee - keep it away from the "
                  "sensor.");
    default:
        break;
    }
    return tr("All sensors agree: today is a perfect day for looking at charts.");
}

// The about box: program name, version, logo and a short page. Four tiny
// buttons in its corners open the dew point oracle.
#pragma once

#include "gui/ui/language.h"

#include <QDialog>

class QToolButton;

class AboutDialogClass : public QDialog
{
    Q_OBJECT

public:
    // The language chooses the page: German, or English for any other.
    AboutDialogClass(qv::Language language, QWidget *parent);

    static QString m_pagePath(qv::Language language);

private slots:
    void s_cornerPressed();

private:
    QToolButton *corner[4];
};

// The light-hearted dialog behind the about box's corners.
class OracleDialogClass : public QDialog
{
    Q_OBJECT

public:
    // saying: 0..3, one per corner of the about box.
    OracleDialogClass(int saying, QWidget *parent);

    static int m_sayingCount();
    static QString m_saying(int index);
};

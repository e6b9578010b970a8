#pragma once

#include <QPointer>
#include <QPushButton>

class CamDesignerImplementation;
class PreviewView;

// The button a host embeds in its pages: it shows the live preview of the
// cam and opens the editor window on a click.
class CamDesignerButton : public QPushButton
{
    Q_OBJECT
public:
    explicit CamDesignerButton(CamDesignerImplementation *designer, QWidget *parent = nullptr);
    ~CamDesignerButton() override;

    PreviewView *preview() const { return m_preview; }

public slots:
    void onDesignerClosed();
    void setIsOpenView();

private:
    void setToolTipEverywhere(const QString &text);

    QPointer<CamDesignerImplementation> m_designer;
    PreviewView *m_preview;
};

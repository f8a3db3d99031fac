// The tool pane: the reference pane above the preview pane, with a splitter bar between them
// that is dragged, and captions that enlarge their pane on a double-click.
#pragma once

#include "views/ToolPaneSplit.h"

#include <QWidget>

class uPreview;
class uReference;

class paneTools : public QWidget {
    Q_OBJECT
public:
    explicit paneTools(QWidget* parent = nullptr);

    void LoadInitSettings();
    void SetOwner(QWidget* owner);
    uReference* GetReference() const { return m_reference; }
    uPreview* GetPreview() const { return m_preview; }

    const ToolPaneSplit& split() const { return m_split; }
    // The pane's height in twips, the unit of the boundary.
    int heightTwips() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void changed(); // stores the boundary and lays the pane out again
    void layoutPane();

    uReference* m_reference;
    QWidget* m_bar;       // pSplit
    QWidget* m_indicator; // pVsplit
    uPreview* m_preview;
    ToolPaneSplit m_split;
    int m_dragTop = 0; // the indicator's position in twips
};

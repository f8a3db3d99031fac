// The tool pane's boundary between the reference pane (above) and the preview pane (below), in
// twips: dragging within the margins, and enlarging either pane by a double-click, as a toggle.
#pragma once

class ToolPaneSplit {
public:
    // The smallest distance of the boundary from the pane's top and bottom.
    static constexpr int kMargin = 550;
    // Where the boundary starts when nothing was stored.
    static constexpr int kDefault = 2700;

    explicit ToolPaneSplit(int boundary = kDefault) : m_top(boundary), m_tag(boundary) {}

    int boundary() const { return m_top; } // pSplit.Top
    int saved() const { return m_tag; }    // pSplit.Tag, what the setting holds

    // The indicator's position for a drag of y from the bar's top: the top margin first, then
    // the bottom one, so the bottom wins in a pane too low for both.
    int dragPosition(int y, int paneHeight) const;
    // The bar is dropped where the indicator is.
    void drop(int top);

    // The preview's caption: enlarged (boundary at the top margin) it returns to where it was,
    // otherwise it takes all but the top margin. The reference's caption likewise downwards.
    void togglePreview(int paneHeight);
    void toggleReference(int paneHeight);

private:
    int m_top;
    int m_tag;
    int m_referenceTag = kDefault; // uReference.Tag: the boundary before it was enlarged
    int m_previewTag = kDefault;   // uPreview.Tag
};

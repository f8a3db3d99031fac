// Where the slider's thumb lies and how the mouse moves it; plain state, no widgets.
#pragma once

#include <algorithm>

class SliderLogic {
public:
    void setSizes(int trackWidth, int thumbWidth) {
        m_trackWidth = trackWidth;
        m_thumbWidth = thumbWidth;
        m_left = clamp(m_left);
    }
    int thumbLeft() const { return m_left; }
    bool dragging() const { return m_dragging; }

    // A press on the thumb starts a drag, keeping where the thumb was grabbed.
    void pressThumb(int xInThumb) {
        m_dragging = true;
        m_grab = xInThumb;
    }
    void moveOnThumb(int xInThumb) {
        if (m_dragging) m_left = clamp(m_left + xInThumb - m_grab);
    }
    // A press or move on the track puts the thumb's left edge under the pointer.
    void pointAtTrack(int xOnTrack) { m_left = clamp(xOnTrack); }
    void release() { m_dragging = false; }

private:
    // Never before the track's start, never past its end.
    int clamp(int left) const { return std::max(0, std::min(left, m_trackWidth - m_thumbWidth)); }

    int m_trackWidth = 0, m_thumbWidth = 0, m_left = 0, m_grab = 0;
    bool m_dragging = false;
};

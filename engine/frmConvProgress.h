// The progress window of a batch: state shared by its console line and (later) its Qt window.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace imaging {
class ImagingControl;
}

// What a backend needs to draw the progress of a batch.
struct ProgressState {
    bool visible = false;
    QString caption;              // the window's caption
    QString label;                // the text of Label1
    int fileNumber = 0;           // 1-based number of the photo being converted; 0 before the first
    int fileCount = 0;            // photos in the batch; 0 when unknown
    double photosPerSecond = 0;   // finished photos per second of the run so far; 0 when unknown
    bool cancelRequested = false; // the user asked to stop before the next photo
    QString currentName() const;  // the label without its fixed "Now Converting:" text
};

// Draws the progress somewhere: a terminal line, a window. Called on every change.
class ProgressBackend {
public:
    virtual ~ProgressBackend() = default;
    virtual void render(const ProgressState& state) = 0;
    // Lets the platform handle pending events once (a window repaints; a terminal has none).
    virtual void processEvents() {}
    // A backend with a Cancel button calls this when it is pressed.
    virtual void setCancelHandler(std::function<void()> handler) { (void)handler; }
};

// A line on stderr while the progress is shown: "file n of N, name, r photos per second",
// redrawn in place; drawn only when stderr is a terminal, so logs of silent batches stay clean.
class ConsoleProgressBackend : public ProgressBackend {
public:
    ~ConsoleProgressBackend() override;
    void render(const ProgressState& state) override;
    static QString progressLine(const ProgressState& state);
};

// The object scripts see as `progress`: Show, Hide, Caption, Label1 and DoXEvents. Each time the
// label is set a new photo is counted (the template sets it once per photo); the host tells the
// number of photos with beginRun.
class frmConvProgress {
public:
    explicit frmConvProgress(std::unique_ptr<ProgressBackend> backend = nullptr);

    void Show();
    void Hide();
    bool Visible() const { return m_state.visible; }
    QString Caption() const { return m_state.caption; }
    void setCaption(const QString& caption);
    QString labelCaption() const { return m_state.label; } // Label1.Caption
    void setLabelCaption(const QString& text);
    void DoXEvents();

    // Start of a batch of fileCount photos (0 = unknown): counting and timing start over.
    void beginRun(int fileCount);
    // What the effects object tells the imaging control at the start of a run: the photos (so
    // that no save of the run replaces another of them), how many saves may run in the
    // background, and whether saves whose target is newer than the photo are skipped.
    struct RunSettings {
        QStringList files;
        int savesInFlight = 1;
        bool skipNewer = false;
    };
    void beginRun(const RunSettings& settings);
    const RunSettings& runSettings() const { return m_run; }
    const ProgressState& state() const { return m_state; }

    // The imaging control every batch works on. Created by the effects factory on first use and
    // kept with the window, so its settings survive from one run to the next.
    std::shared_ptr<imaging::ImagingControl> engine_IX;

    void setBackend(std::unique_ptr<ProgressBackend> backend);

    // Cancel asked for: the batch stops when the next photo would start, so the photo being
    // converted is finished (or fails) as it would have without it. beginRun clears it.
    void requestCancel();
    bool cancelRequested() const { return m_state.cancelRequested; }

private:
    void render();

    std::unique_ptr<ProgressBackend> m_backend;
    ProgressState m_state;
    QElapsedTimer m_clock;
    RunSettings m_run;
};

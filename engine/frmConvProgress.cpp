// The progress window's state and its console backend.
#include "engine/frmConvProgress.h"

#include "platform/ConsoleLine.h"

namespace {
const QString kLabelText = QStringLiteral("Now Converting:");
} // namespace

QString ProgressState::currentName() const {
    QString name = label;
    if (name.startsWith(kLabelText, Qt::CaseInsensitive)) name.remove(0, kLabelText.size());
    return name.trimmed();
}

ConsoleProgressBackend::~ConsoleProgressBackend() {
    ConsoleLine::finish();
}

QString ConsoleProgressBackend::progressLine(const ProgressState& state) {
    QString line = QStringLiteral("file %1").arg(state.fileNumber);
    // A script that sets the label more than once per photo outruns the count; "of N" would lie.
    if (state.fileCount > 0 && state.fileNumber <= state.fileCount)
        line += QStringLiteral(" of %1").arg(state.fileCount);
    const QString name = state.currentName();
    if (!name.isEmpty()) line += QStringLiteral(", ") + name;
    if (state.photosPerSecond > 0)
        line += QStringLiteral(", %1 photos per second").arg(state.photosPerSecond, 0, 'f', 1);
    return line;
}

void ConsoleProgressBackend::render(const ProgressState& state) {
    if (!state.visible || state.fileNumber == 0)
        ConsoleLine::finish();
    else
        ConsoleLine::show(progressLine(state));
}

frmConvProgress::frmConvProgress(std::unique_ptr<ProgressBackend> backend)
    : m_backend(backend ? std::move(backend) : std::make_unique<ConsoleProgressBackend>()) {
    m_state.caption = QStringLiteral("Vantorel 3 - Converting");
    m_state.label = kLabelText;
    m_backend->setCancelHandler([this] { requestCancel(); });
    m_clock.start();
}

void frmConvProgress::setBackend(std::unique_ptr<ProgressBackend> backend) {
    m_backend = std::move(backend);
    if (m_backend) m_backend->setCancelHandler([this] { requestCancel(); });
    render();
}

void frmConvProgress::beginRun(const RunSettings& settings) {
    beginRun(int(settings.files.size()));
    m_run = settings;
}

void frmConvProgress::beginRun(int fileCount) {
    m_run = {};
    m_state.cancelRequested = false;
    m_state.fileCount = fileCount > 0 ? fileCount : 0;
    m_state.fileNumber = 0;
    m_state.photosPerSecond = 0;
    m_clock.restart();
}

void frmConvProgress::requestCancel() {
    m_state.cancelRequested = true;
    render();
}

void frmConvProgress::Show() {
    m_state.visible = true;
    render();
}

void frmConvProgress::Hide() {
    m_state.visible = false;
    render();
}

void frmConvProgress::setCaption(const QString& caption) {
    m_state.caption = caption;
    render();
}

void frmConvProgress::setLabelCaption(const QString& text) {
    // Counted whether shown or not: the default batch shows the window only after the first
    // photo's label has been set.
    m_state.label = text;
    ++m_state.fileNumber;
    const double seconds = double(m_clock.nsecsElapsed()) / 1e9;
    const int finished = m_state.fileNumber - 1;
    m_state.photosPerSecond = finished > 0 && seconds > 0 ? finished / seconds : 0;
    render();
}

void frmConvProgress::DoXEvents() {
    if (m_backend) m_backend->processEvents();
}

void frmConvProgress::render() {
    if (m_backend) m_backend->render(m_state);
}

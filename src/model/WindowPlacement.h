// SPDX-License-Identifier: MIT
//
// One saved window: where it stood, on which display, and how to find it again. Main thread only.
#pragma once

#include "display/DisplayFingerprint.h"
#include "display/NormalizedFrame.h"
#include "model/Record.h"
#include "model/RecordId.h"

#include <QByteArray>
#include <QRectF>
#include <QString>

#include <optional>

namespace trovell {

struct WindowPlacementValues {
    QUuid id = makeRecordId();
    /// The application that owns the window.
    QString bundleIdentifier = {};
    /// As it was called at capture time.
    QString applicationName = {};
    std::optional<QString> windowTitleHint = {};
    std::optional<QString> windowRole = {};
    std::optional<QString> windowSubrole = {};
    /// Position of the window in its application's window list at capture time.
    qint64 windowIndexHint = 0;
    /// Fractions of the display's visible frame, see `NormalizedFrame`.
    double normalizedX = 0;
    double normalizedY = 0;
    double normalizedWidth = 0;
    double normalizedHeight = 0;
    /// Screen coordinates at capture time, in points.
    double absoluteX = 0;
    double absoluteY = 0;
    double absoluteWidth = 0;
    double absoluteHeight = 0;
    /// An encoded `DisplayFingerprint`.
    QByteArray displayFingerprintData = {};
    /// A disabled placement is ignored by restore.
    bool isEnabled = true;
    /// Where it lay among the virtual desktops, counted from 0; none where there are none, and for
    /// a window on all of them.
    std::optional<qint64> virtualDesktopIndex = {};
    std::optional<QString> virtualDesktopName = {};
    bool isOnAllDesktops = false;
    /// See `storedStates`; none where they were not remembered.
    std::optional<QString> windowStates = {};
    /// 0 is the bottom; only the order counts.
    std::optional<qint64> stackingIndex = {};
    // What is to come back of that.
    bool restoresDesktop = true;
    bool restoresState = true;
    /// Its application opens another window when it has too few.
    bool opensMissingWindow = false;

    bool operator==(const WindowPlacementValues&) const = default;
};

class WindowPlacement final : public RecordOf<WindowPlacementValues> {
    Q_OBJECT

public:
    /// A record of its own, in no workspace yet.
    explicit WindowPlacement(WindowPlacementValues values);

    /// The same with a new id. `absoluteFrame` is in screen coordinates; negative extents are
    /// turned round.
    WindowPlacement(QString bundleIdentifier, QString applicationName,
                    std::optional<QString> windowTitleHint, std::optional<QString> windowRole,
                    std::optional<QString> windowSubrole, qint64 windowIndexHint,
                    const NormalizedFrame& normalizedFrame, const QRectF& absoluteFrame,
                    const DisplayFingerprint& displayFingerprint, bool isEnabled);

    [[nodiscard]] const QString& bundleIdentifier() const { return values().bundleIdentifier; }
    [[nodiscard]] const QString& applicationName() const { return values().applicationName; }
    [[nodiscard]] const std::optional<QString>& windowTitleHint() const;
    [[nodiscard]] const std::optional<QString>& windowRole() const { return values().windowRole; }
    [[nodiscard]] const std::optional<QString>& windowSubrole() const;
    [[nodiscard]] qint64 windowIndexHint() const { return values().windowIndexHint; }
    [[nodiscard]] double normalizedX() const { return values().normalizedX; }
    [[nodiscard]] double normalizedY() const { return values().normalizedY; }
    [[nodiscard]] double normalizedWidth() const { return values().normalizedWidth; }
    [[nodiscard]] double normalizedHeight() const { return values().normalizedHeight; }
    [[nodiscard]] double absoluteX() const { return values().absoluteX; }
    [[nodiscard]] double absoluteY() const { return values().absoluteY; }
    [[nodiscard]] double absoluteWidth() const { return values().absoluteWidth; }
    [[nodiscard]] double absoluteHeight() const { return values().absoluteHeight; }
    [[nodiscard]] const QByteArray& displayFingerprintData() const;
    [[nodiscard]] bool isEnabled() const { return values().isEnabled; }
    [[nodiscard]] bool restoresDesktop() const { return values().restoresDesktop; }
    [[nodiscard]] bool restoresState() const { return values().restoresState; }
    [[nodiscard]] bool opensMissingWindow() const { return values().opensMissingWindow; }

    void setBundleIdentifier(const QString& id) { write(&Values::bundleIdentifier, id); }
    void setApplicationName(const QString& name) { write(&Values::applicationName, name); }
    void setWindowTitleHint(const std::optional<QString>& title);
    void setWindowRole(const std::optional<QString>& role) { write(&Values::windowRole, role); }
    void setWindowSubrole(const std::optional<QString>& subrole);
    void setWindowIndexHint(qint64 index) { write(&Values::windowIndexHint, index); }
    void setNormalizedX(double x) { write(&Values::normalizedX, x); }
    void setNormalizedY(double y) { write(&Values::normalizedY, y); }
    void setNormalizedWidth(double width) { write(&Values::normalizedWidth, width); }
    void setNormalizedHeight(double height) { write(&Values::normalizedHeight, height); }
    void setAbsoluteX(double x) { write(&Values::absoluteX, x); }
    void setAbsoluteY(double y) { write(&Values::absoluteY, y); }
    void setAbsoluteWidth(double width) { write(&Values::absoluteWidth, width); }
    void setAbsoluteHeight(double height) { write(&Values::absoluteHeight, height); }
    void setDisplayFingerprintData(const QByteArray& data);
    void setIsEnabled(bool isEnabled) { write(&Values::isEnabled, isEnabled); }
    void setRestoresDesktop(bool restores) { write(&Values::restoresDesktop, restores); }
    void setRestoresState(bool restores) { write(&Values::restoresState, restores); }
    void setOpensMissingWindow(bool opens) { write(&Values::opensMissingWindow, opens); }

    /// The workspace it was appended to; null before.
    [[nodiscard]] TrovellWorkspace* workspace() const { return owner(); }

    [[nodiscard]] NormalizedFrame savedNormalizedFrame() const;
    /// Screen coordinates.
    [[nodiscard]] QRectF savedAbsoluteFrame() const;
    /// The fallback fingerprint when the stored bytes cannot be decoded.
    [[nodiscard]] DisplayFingerprint savedDisplayFingerprint() const;

    /// A new record with an id of its own, in no workspace. Its fingerprint is decoded and encoded
    /// again, so a copy never carries undecodable bytes on.
    [[nodiscard]] std::unique_ptr<WindowPlacement> duplicate() const;
};

} // namespace trovell

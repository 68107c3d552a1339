// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>

class QAbstractButton;
class QBoxLayout;

namespace trovell {

class Divider;
class Scrim;
class ScrollArea;
class SymbolButton;
class VisualStyle;

/// A window-modal sheet over another window: a rounded box with a shadow, centred, at most as large
/// as the screen less 40 px. From top to bottom a header, a body that scrolls where it must, and a
/// footer; each is optional and brings its own padding.
///
///     auto* sheet = new Sheet(visual, window(), tr("Rename Workspace"));
///     sheet->setBody(form);
///     sheet->setBoxWidth(440);
///     sheet->setDefaultButton(renameButton);
///     connect(renameButton, &QPushButton::clicked, sheet, &QDialog::accept);
///     connect(sheet, &QDialog::accepted, this, …);
///     sheet->open();
///
/// Returns at once; `finished`, `accepted` and `rejected` tell the end. The sheet deletes itself
/// after it has closed. Escape and the window manager's close cancel it; Return presses the focused
/// button, elsewhere the default button. The focus returns to where it was. A sheet opened over a
/// sheet dims that one.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// `window` is any widget of the window to cover; `title` is the accessible name.
    Sheet(const VisualStyle& visual, QWidget* window, const QString& title);
    ~Sheet() override;

    // Ownership passes to the sheet.
    void setHeader(QWidget* header);
    void setBody(QWidget* body);
    void setFooter(QWidget* footer);
    /// A footer that is not visible leaves its room to the body.
    void setFooterVisible(bool isVisible);

    /// The painted box, in logical pixels.
    void setBoxSize(const QSize& size);
    /// A box of this width whose height follows its contents, also later on.
    void setBoxWidth(int width);

    void setDefaultButton(QAbstractButton* button);
    /// What has the focus at first; the default button where nothing else is set.
    void setInitialFocus(QWidget* widget);
    /// Adds the cross in the upper trailing corner that cancels, for sheets without a Cancel
    /// button; called again, it only changes the name.
    void showCloseButton(const QString& accessibleName);
    void hideCloseButton();

    /// The painted box in the sheet's coordinates.
    QRect boxRect() const;
    double boxRadius() const;

    void open() override;
    void done(int result) override;

public Q_SLOTS:
    /// What Escape does; reject() unless overridden.
    virtual void cancel();

protected:
    const VisualStyle& visual() const { return m_visual; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize wantedBoxSize() const;
    void fit();
    void place();
    void placeCloseButton();
    void focusFirst();
    void returnFocus();

    const VisualStyle& m_visual;
    QWidget* m_window;
    QSize m_boxSize; ///< a height of 0 follows the contents
    QPointer<QWidget> m_header;
    QPointer<QWidget> m_body;
    QPointer<QWidget> m_footer;
    ScrollArea* m_scrollArea;
    Divider* m_headerRule;
    Divider* m_footerRule;
    QBoxLayout* m_column;
    SymbolButton* m_closeButton = nullptr;
    QPointer<QAbstractButton> m_defaultButton;
    QPointer<QWidget> m_initialFocus;
    QPointer<QWidget> m_opener;
    QPointer<Scrim> m_scrim;
};

} // namespace trovell

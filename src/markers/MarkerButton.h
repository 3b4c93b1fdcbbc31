// One of the ten buttons of the marker window: a click fires its marker a second later, a double-click opens
// its title for editing. The window description makes it, the window owns it. Main thread.
#pragma once

#include "platform/Date.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace marquill {

class MarkerButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(int tag READ tag WRITE setTag)

  public:
    /// What a button tells; it must outlive the button or be taken from it.
    class Delegate {
      public:
        virtual ~Delegate() = default;
        virtual void markerButtonPressed(MarkerButton& button) = 0;
        /// The title was changed by hand.
        virtual void markerButtonEdited(MarkerButton& button) = 0;
    };

    explicit MarkerButton(QWidget* parent = nullptr);

    Delegate* delegate() const { return _delegate; }
    void setDelegate(Delegate* delegate) { _delegate = delegate; }

    /// The button's index in the window, 0 to 9.
    int tag() const { return _tag; }
    void setTag(int tag);

    /// The title as it is, shortened only where it is drawn. An ampersand marks no shortcut.
    QString title() const;
    void setTitle(const QString& title);

    /// Enables or disables the button and, either way, abandons an edit of its title.
    void setEnabled(bool enabled);

    /// Tells the delegate that the button was pressed. `date`, when it was clicked, is not looked at: a
    /// clicked marker bears the moment at which it is fired.
    void triggerMarkerWithDate(Date date);

    /// Fires at once what a click would fire later.
    void firePendingClick();

    /// Opens the title for editing, also on a disabled button.
    void startTextEdit();
    /// Abandons an edit: what was typed is dropped.
    void stopEditing();
    bool isEditing() const { return _isEditing; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void mouseDown(const QMouseEvent& event);
    void mouseUp();
    void pressed();
    void makeTextField();
    void placeTextField();
    void hideTextField();
    void controlTextDidEndEditing();
    void tellTitle();
    QString digit() const;

    QPointer<QLineEdit> _textField;  // the button's sibling, made on first use
    Delegate* _delegate = nullptr;
    int _tag = 0;
    bool _isEditing = false;
    bool _mouseIsDown = false;
    int _clickCount = 0;
    quint64 _lastMouseDown = 0;  // milliseconds on the events' own clock
};

}  // namespace marquill

// The attribute editor of the Clip Manager window: its fields show one clip's record and tell what is edited.
// It changes no record itself. Owned by ClipManager, over widgets that the window owns. Main thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "platform/Error.h"

#include <QObject>

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class QWidget;

namespace marquill {

class ClipAttributes : public QObject {
    Q_OBJECT

  public:
    /// Over the fields of `window`, empty and disabled. Fails with the names of those that are missing.
    static Result<std::unique_ptr<ClipAttributes>> create(QWidget& window);

    /// Fills the fields from the clip and enables them.
    void show(const ClipInfo& clip);
    /// Fills them anew from the clip shown; one that shows its value already is left as it is, and so is a
    /// name that is being typed.
    void refresh(const ClipInfo& clip);
    /// Empties and disables them.
    void clear();
    /// The lines about the clip's file.
    void setFileTexts(const QString& attributes, const QString& path);
    /// Fills the label menu; the label shown stays.
    void setLabels(const QStringList& labels);

    /// Where editing begins: the name.
    QWidget& firstField() const;
    QString clipName() const;
    QString scene() const;
    QString take() const;
    QString comment() const;
    /// The index of the rating menu's item, 0 to 5.
    int rating() const;
    /// The title of the label menu's item.
    QString label() const;

  Q_SIGNALS:
    /// A text is being typed: the key it belongs to, and the text so far.
    void textDidChange(const QString& key, const QString& text);
    // Their editing has ended, or an item was chosen.
    void clipNameChanged();
    void sceneChanged();
    void takeChanged();
    void commentChanged();
    void ratingChanged();
    void shotChanged();
    // Buttons.
    void clipIn();
    void clipOut();
    void showLabelList();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ClipAttributes() = default;
    Result<void> connectOutlets(QWidget& window);
    void wireTexts();
    void wireMenus();
    void wireButtons();
    void fill(const ClipInfo& clip);
    void setEnabled(bool enabled);
    void selectLabel(const std::optional<QString>& label);
    void fillComment(const QString& text);

    QLineEdit* _clipNameText = nullptr;
    QLineEdit* _clipSceneText = nullptr;
    QLineEdit* _clipTakeText = nullptr;
    QComboBox* _shotPopup = nullptr;
    QToolButton* _editLabelsButton = nullptr;
    QComboBox* _ratingPopup = nullptr;
    QPlainTextEdit* _commentView = nullptr;
    QPlainTextEdit* _logView = nullptr;
    QPushButton* _inButton = nullptr;
    QPushButton* _outButton = nullptr;
    QLabel* _clipAttributes = nullptr;
    QLineEdit* _clipAttribPath = nullptr;
    QString _filledName;                  // what the name field was last given
    std::optional<QString> _filledLabel;  // the label of the clip shown
    bool _isFilling = false;
};

}  // namespace marquill

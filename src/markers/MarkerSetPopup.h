// The popup of marker sets: a combo box that shortens a title that does not fit, where the toolkit's own cuts
// it off. The window description makes it, the window owns it. Main thread.
#pragma once

#include <QComboBox>

namespace marquill {

class MarkerSetPopup : public QComboBox {
    Q_OBJECT

  public:
    explicit MarkerSetPopup(QWidget* parent = nullptr) : QComboBox(parent) {}

  protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
};

}  // namespace marquill

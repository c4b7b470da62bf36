// The rows of the form: a label at the left and a control at the right, or only a control. A row is made for one kind
// of control. It keeps its widgets while it shows one model after another, so that the control keeps the keyboard focus
// and a drag continues. Only the user's actions call the model's callbacks; showing a model does not. Main thread.
#pragma once

#include "platform/FormModel.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace haloric {

class QtFormRow : public QWidget {
public:
    // A row for that kind of control, which shows it. Never null; the caller owns it.
    static QtFormRow* make(const FormRow& row);

    bool isFor(const FormRow& row) const { return m_kind == row.control.index(); }
    virtual void show(const FormRow& row) = 0; // requires isFor(row)

    // The widget that takes the keyboard focus.
    QWidget& control() const { return *m_control; }

    // Removes the margins that a row of a card has.
    void makeCompact();

protected:
    explicit QtFormRow(const FormRow& row);

    QLabel& addLabel();

    // At the right of what was added before.
    void addControl(QWidget& control, const FormRow& row);

    // At the left of a row without a label.
    void addOnlyControl(QWidget& control, const FormRow& row);
    QHBoxLayout& line() { return *m_line; }

private:
    std::size_t m_kind;
    QHBoxLayout* m_line;
    QWidget* m_control = nullptr;
};

} // namespace haloric

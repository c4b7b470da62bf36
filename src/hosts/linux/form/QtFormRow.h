// One row of the form: a label at the left, a control at the right, or a control alone. A row is made for one kind of
// control and keeps its widgets while it shows one model after the other, so that the keyboard stays where it is and
// a drag goes on. Showing a model never calls what the model wants called; the user alone does. Main thread.
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
    virtual void show(const FormRow& row) = 0; // of the kind that it is for

    // What takes the keyboard.
    QWidget& control() const { return *m_control; }

    // Without the margins that a row of a card has.
    void makeCompact();

protected:
    explicit QtFormRow(const FormRow& row);

    QLabel& addLabel();

    // At the right of what was added before, or alone at the left.
    void addControl(QWidget& control, const FormRow& row);
    void addControlAlone(QWidget& control, const FormRow& row);
    QHBoxLayout& line() { return *m_line; }

private:
    std::size_t m_kind;
    QHBoxLayout* m_line;
    QWidget* m_control = nullptr;
};

} // namespace haloric

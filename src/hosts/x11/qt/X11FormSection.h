// A section of the form: its title, a card with its rows, and its footer. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormCard.h"
#include "hosts/x11/qt/X11FormRow.h"
#include "hosts/x11/qt/X11KeyedWidgets.h"
#include "platform/FormModel.h"

#include <QWidget>

class QLabel;

namespace haloric {

class X11FormSection final : public QWidget {
public:
    static X11FormSection* make(const FormSection& section); // never null; the caller owns it

    static bool isFor(const FormSection&) { return true; }
    void show(const FormSection& section);

    const Task& onAppear() const { return m_onAppear; }
    const X11KeyedWidgets<X11FormRow>& rows() const { return m_rows; }

protected:
    void changeEvent(QEvent* event) override;

private:
    X11FormSection();
    void colorLabels();

    QLabel* m_title;
    X11FormCard* m_card;
    QLabel* m_footer;
    X11KeyedWidgets<X11FormRow> m_rows;
    Task m_onAppear;
};

} // namespace haloric

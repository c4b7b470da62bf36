// A section of the form: its title, a card with its rows, and its footer. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"
#include "hosts/linux/form/QtKeyedWidgets.h"
#include "platform/FormModel.h"

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace haloric {

// The rounded card that holds the rows of a section, with lines between them.
class QtFormCard final : public QWidget {
public:
    explicit QtFormCard(QWidget* parent);

    QVBoxLayout& rows() { return *m_rows; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

class QtFormSection final : public QWidget {
public:
    static QtFormSection* make(const FormSection& section); // never null; the caller owns it

    static bool isFor(const FormSection&) { return true; }
    void show(const FormSection& section);

    const Task& onAppear() const { return m_onAppear; }
    const QtKeyedWidgets<QtFormRow>& rows() const { return m_rows; }

protected:
    void changeEvent(QEvent* event) override;

private:
    QtFormSection();
    void colorLabels();

    QLabel* m_title;
    QtFormCard* m_card;
    QLabel* m_footer;
    QtKeyedWidgets<QtFormRow> m_rows;
    Task m_onAppear;
};

} // namespace haloric

#pragma once

#include "support/TestCase.h"

#include "AddressBook.h"

#include <memory>

/// The address book, by the same steps before and after it was ported: what a user does, and what comes of it.
class PortedSteps : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void an_entry_is_typed_saved_and_shown_again();
    void enter_in_the_name_saves();
    void nothing_is_saved_without_a_name();
    void an_entry_gets_another_name();
    void another_entry_is_replaced_only_after_a_question();
    void an_entry_is_removed_only_after_a_question();
    void a_question_about_a_long_name_wraps();
    void an_entry_is_found_by_a_part_of_its_name();
    void a_name_that_nobody_has_is_told();
    void keys_of_texts_lead_to_their_controls();

private:
    void SetUp() override;
    void TearDown() override;

    void Press(const char *button);
    void Type(const QString &text);
    void AddEntry(const QString &name);
    void Choose(const QString &name);
    void AnswerNext(Qt::Key key, const QString &typed = QString());
    QStringList Names() const;
    QString NameInForm() const;

    std::unique_ptr<AddressBook> m_window;
    int m_questions = 0;
    int m_width = 0; // of the last one
};

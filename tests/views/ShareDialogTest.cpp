// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a tag that gets lost or torn on its way through the field, and a share that can be sent without what
// it needs.
#include "views/ShareDialog.h"
#include "views/TokenField.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(ShareDialog, GivesBackWhatItWasGivenAndWhatWasTyped)
{
    const ShareForm form{QStringLiteral("Mine"), QStringLiteral("slow"), QStringLiteral("rock & roll,blues"),
                         QStringLiteral("Ann")};
    ShareDialog dialog(form, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.form().title, form.title);
    EXPECT_EQ(dialog.form().description, form.description);
    EXPECT_EQ(dialog.form().tags, form.tags);
    EXPECT_EQ(dialog.form().userName, form.userName);

    const QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    for (const char* const name : {"Title", "Your name"}) {
        for (auto* field : dialog.findChildren<QLineEdit*>()) {
            if (field->accessibleName() != QLatin1String(name))
                continue;
            EXPECT_TRUE(ok->isEnabled());
            field->setText(QStringLiteral("  "));
            EXPECT_FALSE(ok->isEnabled()) << name;
            field->setText(QStringLiteral("x"));
        }
    }
    EXPECT_FALSE(ShareDialog({}, nullptr).form().userName);
}

class TokenFieldTest : public testing::Test {
  protected:
    TokenFieldTest() { field.show(); }
    void type(const char* text) { QTest::keyClicks(edit, QString::fromUtf8(text)); }
    std::string tokens() const { return field.tokens().join(QLatin1Char('|')).toStdString(); }
    QList<QToolButton*> pills() const
    {
        QList<QToolButton*> shown;
        for (auto* pill : field.findChildren<QToolButton*>())
            if (pill->isVisible())
                shown.append(pill);
        return shown;
    }

    TokenField field{QStringLiteral("Tags"), 2, nullptr};
    QLineEdit* edit = field.findChild<QLineEdit*>();
};

TEST_F(TokenFieldTest, WhatIsTypedBecomesPills)
{
    type("folk, ,drum & bass");
    EXPECT_EQ(tokens(), "folk|drum & bass");
    EXPECT_EQ(pills().size(), 1);
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(pills().size(), 2);
    EXPECT_EQ(edit->text(), QString());
    QTest::keyClick(edit, Qt::Key_Backspace);
    EXPECT_EQ(edit->text(), QStringLiteral("drum & bass")) << "to be changed";
    type("es,soul,");
    EXPECT_EQ(tokens(), "folk|drum & basses|soul");
    EXPECT_FALSE(pills()[1]->property("leftOut").toBool());
    EXPECT_TRUE(pills()[2]->property("leftOut").toBool());
    pills()[0]->click();
    EXPECT_EQ(tokens(), "drum & basses|soul");
    EXPECT_FALSE(pills()[1]->property("leftOut").toBool());
}

TEST_F(TokenFieldTest, ManyPillsTakeMoreLines)
{
    field.resize(240, field.height());
    const int line = field.height();
    field.setTokens(QString(QStringLiteral("a long tag,")).repeated(6).split(QLatin1Char(',')));
    EXPECT_EQ(pills().size(), 6);
    EXPECT_GT(field.height(), line);
    for (const QToolButton* pill : pills())
        EXPECT_TRUE(field.rect().contains(pill->geometry()));
}

} // namespace
} // namespace zib

#include "ui/document/TXMenuItem.h"

#include <gtest/gtest.h>

namespace {

TEST(TXMenuItem, isDisabledAtFirst) {
    const TXMenuItem item("Wrap");
    EXPECT_EQ(item.text(), "Wrap");
    EXPECT_FALSE(item.enabledOverride());
    EXPECT_FALSE(item.isEnabled());
}

TEST(TXMenuItem, answersWithItsOverrideWhicheverItemIsAskedAbout) {
    TXMenuItem item;
    const QAction other;
    for (const bool isEnabled : {true, false, true}) {
        item.setEnabledOverride(isEnabled);
        EXPECT_EQ(item.enabledOverride(), isEnabled);
        EXPECT_EQ(item.isEnabled(), isEnabled);
        for (const QAction* asked :
             {static_cast<const QAction*>(&item), &other, static_cast<const QAction*>(nullptr)}) {
            EXPECT_EQ(item.validateMenuItem(asked), isEnabled);
        }
    }
}

}  // namespace

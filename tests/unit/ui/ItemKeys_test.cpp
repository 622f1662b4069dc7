// Keys an item list handles itself: movement, Space on check boxes and radio groups, and field editing
// through each field's character filter.
#include "core/Keys.h"
#include "ui/FieldFilter.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"

#include "support/OffscreenTerminal.h"

#include <memory>

namespace Tarn {
namespace {

TEST(FieldFilter, LetsInOnlyItsCharacters) {
    const struct {
        FieldFilter filter;
        const char* accepted;
        const char* refused;
    } cases[] = {
        {FieldFilter::Ipv4Address, "0123456789.", "a:/ -x"},
        {FieldFilter::IpAddress, "0123456789abcdefABCDEF:./", "gG -%z"},
        {FieldFilter::Number, "0123456789", ".a -+"},
        {FieldFilter::Text, "aZ9 .:-/%", ""},
    };
    for (const auto& c : cases) {
        for (const char* p = c.accepted; *p != '\0'; ++p)
            EXPECT_TRUE(FieldAccepts(c.filter, *p)) << static_cast<int>(c.filter) << " '" << *p << "'";
        for (const char* p = c.refused; *p != '\0'; ++p)
            EXPECT_FALSE(FieldAccepts(c.filter, *p)) << static_cast<int>(c.filter) << " '" << *p << "'";
        // Editing keys are no characters: every filter leaves them to the field.
        for (int key : {Key::Left, Key::Backspace, Key::Delete, Key::Home, Key::BackspaceByte})
            EXPECT_TRUE(FieldAccepts(c.filter, key));
    }
}

class ItemKeys : public Testing::OffscreenTerminal {
protected:
    void SetUp() override {
        OffscreenTerminal::SetUp();
        window_ = std::make_unique<Window>(0, 0, 60, 10, 3, 0);
        list_ = window_->AddChild<ItemList>(0, 0, 60, 10);
        list_->SetItems({&dhcp_, &manual_, &v6off_, &v6on_, &check_, &address_, &vlan_});
    }
    void TearDown() override {
        window_.reset();
        OffscreenTerminal::TearDown();
    }
    void Keys(std::initializer_list<int> keys) {
        for (int key : keys)
            list_->OnKey(key);
    }

    RadioItem dhcp_{"DHCP", true, 0};
    RadioItem manual_{"Manual", false, 0};
    RadioItem v6off_{"IPv6 off", true, 1};
    RadioItem v6on_{"IPv6 on", false, 1};
    CheckItem check_{"Check", false};
    InputItem address_{"Address", "10.0.0.1", 20, FieldFilter::Ipv4Address};
    InputItem vlan_{"VLAN", "", 6, FieldFilter::Number};
    std::unique_ptr<Window> window_;
    ItemList* list_ = nullptr;
};

TEST_F(ItemKeys, SpaceChoosesOneRadioPerGroupAndTogglesChecks) {
    Keys({Key::Down, Key::Space}); // Manual
    EXPECT_TRUE(manual_.Chosen());
    EXPECT_FALSE(dhcp_.Chosen());
    EXPECT_TRUE(v6off_.Chosen()) << "another group is left alone";
    EXPECT_EQ(list_->ChosenIndex(0), 1);
    Keys({Key::Down, Key::Down, Key::Space}); // IPv6 on
    EXPECT_EQ(list_->ChosenIndex(1), 3);
    EXPECT_TRUE(manual_.Chosen());
    Keys({Key::Space}); // again: stays chosen
    EXPECT_TRUE(v6on_.Chosen());
    EXPECT_FALSE(v6off_.Chosen());
    Keys({Key::Down, Key::Space, Key::Space, Key::Space});
    EXPECT_TRUE(check_.Checked());
    EXPECT_FALSE(list_->OnKey('x')) << "a letter means nothing to a check box";
    EXPECT_FALSE(list_->OnKey(Key::Enter));
}

TEST_F(ItemKeys, FocusedFieldEditsThroughItsFilter) {
    list_->FocusItem(5);
    ASSERT_EQ(list_->FocusedItem(), &address_);
    // A refused character is not used (the dialog may take it) and does not clear the fresh value.
    EXPECT_FALSE(list_->OnKey('x'));
    EXPECT_EQ(address_.Value(), "10.0.0.1");
    for (int key : {'1', '9', '2', 'a', '.', '1'})
        list_->OnKey(key);
    EXPECT_EQ(address_.Value(), "192.1");
    EXPECT_TRUE(list_->OnKey(Key::Backspace));
    EXPECT_EQ(address_.Value(), "192.");
    Keys({Key::Down, '4', '.', '0', '9', '5'});
    EXPECT_EQ(vlan_.Value(), "4095");
    EXPECT_EQ(address_.Value(), "192.") << "only the focused field edits";
    // Space is a character too: a digits-only field refuses it.
    EXPECT_FALSE(list_->OnKey(Key::Space));
    Keys({Key::Up, Key::Up, Key::Up});
    EXPECT_EQ(list_->FocusIndex(), 3);
}

} // namespace
} // namespace Tarn

#include "host/formfile/FormText.h"

#include <gtest/gtest.h>

namespace kiv::host
{

namespace
{

std::string MistakeIn(const std::string& text)
{
    try
    {
        CheckForm(ParseForm(text, "f"), "f");
        return {};
    }
    catch (const FormError& error)
    {
        return error.what();
    }
}

std::string OfForm(const std::string& line)
{
    return MistakeIn("Begin Form a\n" + line + "\nEnd\n");
}

std::string OfItem(const std::string& blockClass, const std::string& line)
{
    return MistakeIn("Begin Form a\nBegin " + blockClass + " b\n\n" + line + "\nEnd\nEnd\n");
}

TEST(CheckForm, TakesWhatAFormCanUse)
{
    EXPECT_EQ(OfForm("Caption = \"x\"\nClientWidth = 0\nClientHeight = 1000000\nGridX = 15\nGridY = 1440"),
              "");
    EXPECT_EQ(OfForm("RightToLeft = True"), "");
    EXPECT_EQ(OfForm("Anything = 5\nElse = \"kept\""), "");
    for (const char* blockClass : {"Label", "Frame", "Button", "Maker.Answer"})
        EXPECT_EQ(OfItem(blockClass,
                         "Left = -100000\nTop = 1000000\nWidth = 0\nHeight = 1000000\nTabIndex = -1\n"
                         "Visible = False\nElse = 1.5"),
                  "");
    EXPECT_EQ(OfItem("Label", "Caption = \"\"\nAlignRight = True\nFontBold = False\nEnabled = True"), "");
    EXPECT_EQ(OfItem("Frame", "Caption = \"\"\nEnabled = True"), "");
    EXPECT_EQ(OfItem("Button", "Caption = \"\"\nDefault = True\nCancel = True\nEnabled = False"), "");
    // A control's own keys are the control's.
    EXPECT_EQ(OfItem("Maker.Answer", "Caption = 5\nDefault = 1\nEnabled = \"x\"\nTabStop = False"), "");
}

TEST(CheckForm, SaysWhichKeyIsWrongAndWhere)
{
    EXPECT_EQ(OfForm("Caption = 5"), "f:2: Caption: a text in quotes is expected");
    EXPECT_EQ(OfForm("\n\nCaption = True"), "f:4: Caption: a text in quotes is expected");
    EXPECT_EQ(OfForm("ClientWidth = -1"), "f:2: ClientWidth: a whole number from 0 to 1000000 is expected");
    EXPECT_EQ(OfForm("ClientHeight = 1000001"),
              "f:2: ClientHeight: a whole number from 0 to 1000000 is expected");
    EXPECT_EQ(OfForm("ClientHeight = 5.5"),
              "f:2: ClientHeight: a whole number from 0 to 1000000 is expected");
    EXPECT_EQ(OfForm("GridX = 14"), "f:2: GridX: a whole number from 15 to 1440 is expected");
    EXPECT_EQ(OfForm("GridY = 1441"), "f:2: GridY: a whole number from 15 to 1440 is expected");
    EXPECT_EQ(OfForm("RightToLeft = 1"), "f:2: RightToLeft: True or False is expected");
    for (const char* blockClass : {"Label", "Frame", "Button", "Maker.Answer"})
    {
        EXPECT_EQ(OfItem(blockClass, "Left = 1000001"),
                  "f:4: Left: a whole number from -100000 to 1000000 is expected");
        EXPECT_EQ(OfItem(blockClass, "Top = \"x\""),
                  "f:4: Top: a whole number from -100000 to 1000000 is expected");
        EXPECT_EQ(OfItem(blockClass, "Width = -100"),
                  "f:4: Width: a whole number from 0 to 1000000 is expected");
        EXPECT_EQ(OfItem(blockClass, "Height = -1"),
                  "f:4: Height: a whole number from 0 to 1000000 is expected");
        EXPECT_EQ(OfItem(blockClass, "TabIndex = 40000"),
                  "f:4: TabIndex: a whole number from -1 to 32767 is expected");
        EXPECT_EQ(OfItem(blockClass, "Visible = 1"), "f:4: Visible: True or False is expected");
    }
    EXPECT_EQ(OfItem("Label", "FontBold = 1"), "f:4: FontBold: True or False is expected");
    EXPECT_EQ(OfItem("Label", "AlignRight = \"x\""), "f:4: AlignRight: True or False is expected");
    EXPECT_EQ(OfItem("Frame", "Enabled = 1"), "f:4: Enabled: True or False is expected");
    EXPECT_EQ(OfItem("Button", "Default = 1"), "f:4: Default: True or False is expected");
    EXPECT_EQ(OfItem("Maker.Answer", "TabStop = 1"), "f:4: TabStop: True or False is expected");
}

TEST(CheckForm, LooksIntoFrames)
{
    EXPECT_EQ(
        MistakeIn(
            "Begin Form a\nBegin Frame b\nBegin Frame c\nBegin Label d\nLeft = True\nEnd\nEnd\nEnd\nEnd\n"),
        "f:5: Left: a whole number from -100000 to 1000000 is expected");
}

TEST(CheckForm, TakesOneDefaultAndOneCancelButton)
{
    const auto twoButtons = [](const std::string& one, const std::string& other) {
        return MistakeIn("Begin Form a\nBegin Button b\n" + one + "\nEnd\nBegin Frame g\nBegin Button c\n" +
                         other + "\nEnd\nEnd\nEnd\n");
    };
    EXPECT_EQ(twoButtons("Default = True", "Cancel = True"), "");
    EXPECT_EQ(twoButtons("Default = True", "Default = False"), "");
    EXPECT_EQ(twoButtons("Default = True", "Default = True"),
              "f:7: Default: b is the default button already");
    EXPECT_EQ(twoButtons("Cancel = True", "Cancel = True"), "f:7: Cancel: b is the cancel button already");
}

} // namespace

} // namespace kiv::host

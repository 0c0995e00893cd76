#include "host/folio/FormPage.h"

#include "host/container/Automation.h"
#include "host/container/ScreenUnits.h"
#include "host/folio/BagBlocks.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "host/formfile/FormFile.h"
#include "runtime/com/MakeCom.h"

#include <algorithm>

namespace kiv::host
{

namespace
{

// Dots of the design grid, in twips.
constexpr long GridTwips = 120;

// What a form gives to every control, as opposed to what the control itself persists.
constexpr const char* PlaceKeys[] = {"Left", "Top", "Width", "Height", "TabIndex", "TabStop", "Visible"};
constexpr const char* ExtendedKeys[] = {"Tag", "HelpContextID", "WhatsThisHelpID", "ToolTipText"};

bool IsFormKey(const std::string& key)
{
    const auto same = [&](const char* each) { return SameFormName(each, key); };
    return std::any_of(std::begin(PlaceKeys), std::end(PlaceKeys), same) ||
           std::any_of(std::begin(ExtendedKeys), std::end(ExtendedKeys), same);
}

// Typed reading of a block's keys; a wrong type is a mistake in the file.
class Keys
{
public:
    Keys(const FormBlock& block, std::string_view file) : block_(block), file_(file) {}

    long Number(const char* key, long otherwise) const
    {
        const FormValue* value = block_.Find(key);
        if (!value)
            return otherwise;
        const std::int64_t* number = std::get_if<std::int64_t>(value);
        // Positions are twips on a screen; MulDiv and window calls take no more anyway.
        if (!number || *number < -100000 || *number > 1000000)
            Refuse(key, "a whole number of reasonable size is expected");
        return static_cast<long>(*number);
    }

    bool Truth(const char* key, bool otherwise) const
    {
        const FormValue* value = block_.Find(key);
        if (value && !std::get_if<bool>(value))
            Refuse(key, "True or False is expected");
        return value ? std::get<bool>(*value) : otherwise;
    }

    std::wstring Text(const char* key) const
    {
        const FormValue* value = block_.Find(key);
        if (value && !std::get_if<std::string>(value))
            Refuse(key, "a text in quotes is expected");
        return value ? Wide(std::get<std::string>(*value)) : std::wstring();
    }

    RECT Bounds() const
    {
        return PixelsFromTwips(Number("Left", 0), Number("Top", 0), Number("Width", 0), Number("Height", 0));
    }

    short TabIndex() const { return static_cast<short>(std::clamp(Number("TabIndex", -1), -1L, 32767L)); }

private:
    [[noreturn]] void Refuse(const char* key, const char* what) const
    {
        const auto entry = std::find_if(block_.Entries.begin(), block_.Entries.end(),
                                        [&](const FormEntry& each) { return SameFormName(each.Key, key); });
        throw FormError(file_, entry->Line, std::string(key) + ": " + what);
    }

    const FormBlock& block_;
    std::string_view file_;
};

// What a control cannot load.
struct ErrorLog final : SiteObserver
{
    void OnLoggedError(ControlSite&, const LoggedError& error) override { Errors.push_back(error); }

    std::vector<LoggedError> Errors;
};

} // namespace

FormPage::FormPage(const std::filesystem::path& file, bool design) :
    fileName_(file.string()), document_(LoadFormFile(file))
{
    const Keys keys(document_.Form, fileName_);
    const RECT client =
        PixelsFromTwips(0, 0, keys.Number("ClientWidth", 6000), keys.Number("ClientHeight", 4000));
    form_ = std::make_unique<Form>(keys.Text("Caption"), SizeOf(client));
    if (design)
        form_->SetDesignMode(SizeOf(PixelsFromTwips(0, 0, GridTwips, GridTwips)));
    for (const FormEntry& entry : document_.Form.Entries)
        if (!entry.Block.empty() && !entry.Block.front().IsProperty)
            Add(entry.Block.front());
}

void FormPage::Add(const FormBlock& block)
{
    const Keys keys(block, fileName_);
    if (SameFormName(block.Class, "Label"))
        form_->AddLabel({.name = Wide(block.Name),
                         .caption = keys.Text("Caption"),
                         .bounds = keys.Bounds(),
                         .alignRight = keys.Truth("AlignRight", false),
                         .bold = keys.Truth("FontBold", false),
                         .enabled = keys.Truth("Enabled", true),
                         .tabIndex = keys.TabIndex()});
    else if (SameFormName(block.Class, "Frame"))
        form_->AddFrame({.name = Wide(block.Name),
                         .caption = keys.Text("Caption"),
                         .bounds = keys.Bounds(),
                         .tabIndex = keys.TabIndex()});
    else if (SameFormName(block.Class, "Button"))
        form_->AddButton({.name = Wide(block.Name),
                          .caption = keys.Text("Caption"),
                          .bounds = keys.Bounds(),
                          .isDefault = keys.Truth("Default", false),
                          .isCancel = keys.Truth("Cancel", false),
                          .enabled = keys.Truth("Enabled", true),
                          .tabIndex = keys.TabIndex(),
                          .onClick = {}});
    else
        AddControl(block);
}

void FormPage::AddControl(const FormBlock& block)
{
    const Keys keys(block, fileName_);
    const auto bag = MakeCom<PropertyBag>();
    try
    {
        ReadBlock(block, IsFormKey, form_->FontObject(), *bag.Get());
        SiteOptions options;
        options.name = Wide(block.Name);
        options.bounds = keys.Bounds();
        options.load = bag.Get();
        options.tabIndex = keys.TabIndex();
        options.tabStop = keys.Truth("TabStop", true);
        options.visible = keys.Truth("Visible", true);
        options.userMode = !form_->DesignMode();
        const auto log = std::make_shared<ErrorLog>();
        options.observer = log;
        ControlSite& site = form_->Add(Wide(block.Class).c_str(), options);
        for (const char* key : ExtendedKeys)
            if (const FormValue* value = block.Find(key))
                PutProperty(site.ExtendedControl(), Wide(key), ToVariant(*value));
        site.Observe(nullptr);
        for (const LoggedError& error : log->Errors)
            warnings_.push_back(FormError(fileName_, block.Line,
                                          block.Name + "." + Utf8(error.Property) + ": " +
                                              Utf8(error.Description) + " " + DescribeResult(error.Result))
                                    .what());
    }
    catch (const ComError& error)
    {
        throw FormError(fileName_, block.Line,
                        block.Class + " " + block.Name +
                            " cannot be made: " + DescribeResult(error.Result()));
    }
    catch (const std::invalid_argument& mistake)
    {
        throw FormError(fileName_, block.Line, block.Name + ": " + mistake.what());
    }
    bags_[block.Name] = bag;
}

std::vector<ControlSite*> FormPage::Sites() const
{
    std::vector<ControlSite*> sites;
    for (const auto& item : form_->Items())
        if (auto* const site = dynamic_cast<ControlSite*>(item.get()))
            sites.push_back(site);
    std::stable_sort(sites.begin(), sites.end(), [](const ControlSite* one, const ControlSite* other) {
        return one->TabIndex() < other->TabIndex();
    });
    return sites;
}

void FormPage::GiveDatabase(IDispatch* database)
{
    for (ControlSite* site : Sites())
        if (site->HasMember(L"Database"))
            site->Put(L"Database", Variant(database));
}

void FormPage::SaveItem(FormBlock& block)
{
    FormItem* const item = form_->Find(Wide(block.Name));
    if (!item)
        return;
    // Twips that mean the pixels at hand stay as the file has them.
    const RECT& now = item->Bounds();
    const RECT before = Keys(block, fileName_).Bounds();
    const auto keep = [&](const char* key, long present, long stored, long twipsPerPixel) {
        if (present != stored)
            block.Set(key, std::int64_t(present) * twipsPerPixel);
    };
    keep("Left", now.left, before.left, TwipsPerPixelX());
    keep("Top", now.top, before.top, TwipsPerPixelY());
    keep("Width", SizeOf(now).cx, SizeOf(before).cx, TwipsPerPixelX());
    keep("Height", SizeOf(now).cy, SizeOf(before).cy, TwipsPerPixelY());

    auto* const site = dynamic_cast<ControlSite*>(item);
    if (!site)
        return;
    for (const char* key : ExtendedKeys)
    {
        const std::optional<FormValue> value = ToFormValue(GetProperty(site->ExtendedControl(), Wide(key)));
        const bool isDefault = value == FormValue(std::string()) || value == FormValue(std::int64_t(0));
        if (value && (!isDefault || block.Find(key)))
            block.Set(key, *value);
    }
    const auto bag = MakeCom<PropertyBag>();
    Check(site->Save(*bag.Get()));
    WriteBlock(*bag.Get(), bags_.at(block.Name)->Asked(), block);
}

void FormPage::Save(const std::filesystem::path& file)
{
    for (FormEntry& entry : document_.Form.Entries)
        if (!entry.Block.empty() && !entry.Block.front().IsProperty)
        {
            FormBlock& block = entry.Block.front();
            try
            {
                SaveItem(block);
            }
            catch (const ComError& error)
            {
                throw FormError(fileName_, block.Line,
                                block.Name + " cannot be saved: " + DescribeResult(error.Result()));
            }
            catch (const std::invalid_argument& mistake)
            {
                throw FormError(fileName_, block.Line, block.Name + ": " + mistake.what());
            }
        }
    SaveFormFile(file, document_);
}

} // namespace kiv::host

#include "host/folio/FormPage.h"

#include "host/container/Automation.h"
#include "host/container/ScreenUnits.h"
#include "host/folio/BagBlocks.h"
#include "host/folio/Members.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "host/formfile/FormFile.h"
#include "runtime/com/MakeCom.h"

#include <algorithm>
#include <cmath>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

// Twips: what a form has that says nothing else.
constexpr long ClientWidth = 6000;
constexpr long ClientHeight = 4000;
constexpr long Grid = 120;

// What a form gives to every control, as opposed to what the control itself persists.
constexpr const char* PlaceKeys[] = {"Left", "Top", "Width", "Height", "TabIndex", "TabStop", "Visible"};
constexpr const char* ExtendedKeys[] = {"Tag", "HelpContextID", "WhatsThisHelpID", "ToolTipText",
                                        "AccessibleName"};

bool IsFormKey(const std::string& key)
{
    const auto same = [&](const char* each) { return SameFormName(each, key); };
    return std::any_of(std::begin(PlaceKeys), std::end(PlaceKeys), same) ||
           std::any_of(std::begin(ExtendedKeys), std::end(ExtendedKeys), same);
}

bool IsItem(const FormEntry& entry)
{
    return !entry.Block.empty() && !entry.Block.front().IsProperty;
}

// Typed reading of a block's keys, whose types the file has been checked for.
class Keys
{
public:
    explicit Keys(const FormBlock& block) : block_(block) {}

    long Number(const char* key, long otherwise) const
    {
        const FormValue* const value = block_.Find(key);
        return value ? static_cast<long>(std::get<std::int64_t>(*value)) : otherwise;
    }

    bool Truth(const char* key, bool otherwise) const
    {
        const FormValue* const value = block_.Find(key);
        return value ? std::get<bool>(*value) : otherwise;
    }

    std::wstring Text(const char* key) const
    {
        const FormValue* const value = block_.Find(key);
        return value ? Wide(std::get<std::string>(*value)) : std::wstring();
    }

    // On the form, of what stands in a container.
    RECT BoundsIn(const FormItem* container) const
    {
        RECT bounds =
            PixelsFromTwips(Number("Left", 0), Number("Top", 0), Number("Width", 0), Number("Height", 0));
        if (container)
            OffsetRect(&bounds, container->Bounds().left, container->Bounds().top);
        return bounds;
    }

    short TabIndex() const { return static_cast<short>(Number("TabIndex", -1)); }

private:
    const FormBlock& block_;
};

// The form and all that stands on it.
void Enlarge(FormBlock& block, double times)
{
    for (const char* key : {"Left", "Top", "Width", "Height", "ClientWidth", "ClientHeight"})
        if (const FormValue* const value = block.Find(key))
            block.Set(
                key, std::int64_t{std::llround(static_cast<double>(std::get<std::int64_t>(*value)) * times)});
    for (FormEntry& entry : block.Entries)
        if (IsItem(entry))
            Enlarge(entry.Block.front(), times);
}

std::string Joined(const std::multimap<int, std::string>& mistakes)
{
    std::string all;
    for (const auto& [line, mistake] : mistakes)
        all += (all.empty() ? "" : "\n") + mistake;
    return all;
}

// What a control cannot load.
struct ErrorLog final : SiteObserver
{
    void OnLoggedError(ControlSite&, const LoggedError& error) override { Errors.push_back(error); }

    std::vector<LoggedError> Errors;
};

// Whether a control made of a whole number or a Boolean something else than what it was given.
bool IsOther(const FormValue& given, const Variant& taken)
{
    const std::optional<FormValue> plain = ToFormValue(taken);
    if (!plain)
        return false;
    const auto number = [](const FormValue& value) -> std::optional<double> {
        if (const bool* truth = std::get_if<bool>(&value))
            return *truth ? 1 : 0;
        if (const std::int64_t* whole = std::get_if<std::int64_t>(&value))
            return static_cast<double>(*whole);
        return std::nullopt;
    };
    const std::optional<double> one = number(given);
    const std::optional<double> other = number(*plain);
    const bool isTruth = std::get_if<bool>(&given) || std::get_if<bool>(&*plain);
    return one && other && (isTruth ? (*one != 0) != (*other != 0) : *one != *other);
}

// What a file would say of the item: its place, in twips of what it stands in, and a control's own state.
FormBlock StateOf(FormItem& item)
{
    FormBlock state;
    RECT bounds = item.Bounds();
    if (const FormItem* const container = item.Container())
        OffsetRect(&bounds, -container->Bounds().left, -container->Bounds().top);
    state.Set("Left", std::int64_t(TwipsX(bounds.left)));
    state.Set("Top", std::int64_t(TwipsY(bounds.top)));
    state.Set("Width", std::int64_t(TwipsX(SizeOf(bounds).cx)));
    state.Set("Height", std::int64_t(TwipsY(SizeOf(bounds).cy)));
    state.Set("TabIndex", std::int64_t(item.TabIndex()));
    state.Set("Visible", item.Visible());
    auto* const site = dynamic_cast<ControlSite*>(&item);
    if (!site)
        return state;
    state.Set("TabStop", item.TabStop());
    for (const char* key : ExtendedKeys)
        if (const auto value = ToFormValue(GetProperty(site->ExtendedControl(), Wide(key))))
            state.Set(key, *value);
    const auto bag = MakeCom<PropertyBag>();
    Check(site->Save(*bag.Get()));
    for (FormEntry& entry : WriteBlock(*bag.Get()).Entries)
        state.Entries.push_back(std::move(entry));
    return state;
}

} // namespace

FormPage::FormPage(const std::filesystem::path& file, const PageOptions& options) :
    fileName_(file.string()), document_(LoadFormFile(file))
{
    if (options.Points != 0)
        Enlarge(document_.Form, options.Points / Form::UsualFontSize());
    const Keys keys(document_.Form);
    const auto pixels = [](long width, long height) { return SizeOf(PixelsFromTwips(0, 0, width, height)); };
    try
    {
        form_ = std::make_unique<Form>(
            keys.Text("Caption"),
            pixels(keys.Number("ClientWidth", ClientWidth), keys.Number("ClientHeight", ClientHeight)),
            keys.Truth("RightToLeft", false));
    }
    catch (const ComError& error)
    {
        throw std::runtime_error("FolioHost: there is no display that a form can be shown on (" +
                                 DescribeError(error) + ")");
    }
    if (options.Points != 0)
        form_->FontSize(options.Points);
    if (options.Design)
        form_->SetDesignMode(pixels(keys.Number("GridX", Grid), keys.Number("GridY", Grid)));
    AddItems(document_.Form, nullptr);
    if (!mistakes_.empty())
        throw std::runtime_error(Joined(mistakes_));
    if (options.ToBeSaved)
        for (const auto& item : form_->Items())
            Remember(*item);
}

void FormPage::AddItems(const FormBlock& container, FormItem* frame)
{
    for (const FormEntry& entry : container.Entries)
        if (IsItem(entry))
        {
            const FormBlock& block = entry.Block.front();
            // Nothing but a frame has items of its own in a file that can be read.
            if (FormItem* const item = Add(block, frame))
                AddItems(block, item);
        }
}

// Null for a control that could not be made.
FormItem* FormPage::Add(const FormBlock& block, FormItem* frame)
{
    const Keys keys(block);
    FormItem* item = nullptr;
    if (SameFormName(block.Class, "Label"))
        item = &form_->AddLabel({.name = Wide(block.Name),
                                 .caption = keys.Text("Caption"),
                                 .bounds = keys.BoundsIn(frame),
                                 .container = frame,
                                 .alignRight = keys.Truth("AlignRight", false),
                                 .bold = keys.Truth("FontBold", false),
                                 .enabled = keys.Truth("Enabled", true),
                                 .tabIndex = keys.TabIndex()});
    else if (SameFormName(block.Class, "Frame"))
        item = &form_->AddFrame({.name = Wide(block.Name),
                                 .caption = keys.Text("Caption"),
                                 .bounds = keys.BoundsIn(frame),
                                 .container = frame,
                                 .enabled = keys.Truth("Enabled", true),
                                 .tabIndex = keys.TabIndex()});
    else if (SameFormName(block.Class, "Button"))
        item = &form_->AddButton({.name = Wide(block.Name),
                                  .caption = keys.Text("Caption"),
                                  .bounds = keys.BoundsIn(frame),
                                  .container = frame,
                                  .isDefault = keys.Truth("Default", false),
                                  .isCancel = keys.Truth("Cancel", false),
                                  .enabled = keys.Truth("Enabled", true),
                                  .tabIndex = keys.TabIndex(),
                                  .onClick = {}});
    else
        return AddControl(block, frame);
    if (!keys.Truth("Visible", true))
        item->SetVisible(false);
    return item;
}

ControlSite* FormPage::AddControl(const FormBlock& block, FormItem* frame)
{
    const Keys keys(block);
    const auto bag = MakeCom<PropertyBag>();
    if (!classes_.Knows(Wide(block.Class)))
    {
        Mistake(block.Line, "there is no class " + block.Class +
                                ": Label, Frame, Button or the ProgID of a registered control is expected");
        return nullptr;
    }
    try
    {
        ReadBlock(block, fileName_, IsFormKey, form_->FontObject(), *bag.Get());
        SiteOptions options;
        options.name = Wide(block.Name);
        options.bounds = keys.BoundsIn(frame);
        options.container = frame;
        options.load = bag.Get();
        options.tabIndex = keys.TabIndex();
        options.tabStop = keys.Truth("TabStop", true);
        options.visible = keys.Truth("Visible", true);
        options.userMode = !form_->DesignMode();
        const auto log = std::make_shared<ErrorLog>();
        options.observer = log;
        ControlSite& site = form_->Add(classes_.Make(Wide(block.Class)).Get(), options);
        site.Observe(nullptr);
        if (!site.Query<IOleObject>())
            Mistake(block.Line, block.Class + " " + block.Name + " cannot be made: it is no control");
        CheckTaken(block, site, log->Errors);
        NoteUnknownKeys(block, site, *bag.Get());
        return &site;
    }
    catch (const ComError& error)
    {
        Mistake(block.Line, block.Class + " " + block.Name + " cannot be made: " + DescribeError(error));
        return nullptr;
    }
}

// A form that shows something else than its file says would be saved as something else.
void FormPage::CheckTaken(const FormBlock& block, ControlSite& site, const std::vector<LoggedError>& errors)
{
    const auto refuse = [&](const std::string& key, const std::string& why) {
        const std::string written(block.WrittenValue(key));
        Mistake(block.LineOf(key), key + ": " + block.Name + " does not take " +
                                       (written.empty() ? "this" : written) + ": " + why);
    };
    for (const LoggedError& error : errors)
        refuse(Utf8(error.Property), WhyRefused(site.Control(), error.Property, ComError(error.Result)));
    for (const char* key : ExtendedKeys)
        if (const FormValue* const value = block.Find(key))
            try
            {
                PutProperty(site.ExtendedControl(), Wide(key), ToVariant(*value));
            }
            catch (const ComError&)
            {
                const bool isNumber = std::string_view(key).ends_with("ID");
                refuse(key, isNumber ? "a whole number is expected" : "a text in quotes is expected");
            }
    for (const FormEntry& entry : block.Entries)
    {
        if (entry.Key.empty() || IsFormKey(entry.Key))
            continue;
        const std::wstring name = Wide(entry.Key);
        const bool isTold = std::any_of(errors.begin(), errors.end(), [&](const LoggedError& error) {
            return SameName(error.Property, name);
        });
        if (const std::optional<Variant> taken = isTold ? std::nullopt : TryGet(site, name);
            taken && IsOther(entry.Value, *taken))
            refuse(entry.Key, WhatPropertyTakes(site.Control(), name) + " within its range is expected");
    }
}

void FormPage::NoteUnknownKeys(const FormBlock& block, const ControlSite& site, const PropertyBag& bag)
{
    const auto isAsked = [&](const std::wstring& name) {
        return std::any_of(bag.Asked().begin(), bag.Asked().end(),
                           [&](const std::wstring& asked) { return SameName(asked, name); });
    };
    for (const FormEntry& entry : block.Entries)
    {
        if (entry.Block.empty() && (entry.Key.empty() || IsFormKey(entry.Key)))
            continue;
        const std::string& key = entry.Block.empty() ? entry.Key : entry.Block.front().Name;
        // What begins like this is a designer's own.
        if (key.starts_with('_') || isAsked(Wide(key)) || site.HasMember(Wide(key)))
            continue;
        notes_.push_back(
            FormError(fileName_, entry.Line, block.Name + " has no property " + key + "; the line is kept")
                .what());
    }
}

void FormPage::Mistake(int line, const std::string& what)
{
    mistakes_.emplace(line, FormError(fileName_, line, what).what());
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

void FormPage::Remember(FormItem& item)
{
    try
    {
        loaded_[Utf8(item.Name())] = StateOf(item);
    }
    catch (const std::exception&)
    {
        // Save says what is wrong, for those who want to.
    }
}

void FormPage::TakeChanges()
{
    std::map<std::string, FormItem*> items;
    for (const auto& item : form_->Items())
        items[Utf8(item->Name())] = item.get();
    Update(document_.Form, items);
}

void FormPage::Save(const std::filesystem::path& file) const
{
    SaveFormFile(file, document_);
}

void FormPage::Update(FormBlock& container, const std::map<std::string, FormItem*>& items)
{
    for (FormEntry& entry : container.Entries)
        if (IsItem(entry))
        {
            FormBlock& block = entry.Block.front();
            // One that was taken off the form meanwhile stays in the file.
            if (const auto item = items.find(block.Name); item != items.end())
                UpdateItem(block, *item->second);
            Update(block, items);
        }
}

void FormPage::UpdateItem(FormBlock& block, FormItem& item)
{
    const auto refuse = [&](const std::string& why) {
        throw FormError(fileName_, block.Line, block.Name + " cannot be saved: " + why);
    };
    try
    {
        const FormBlock now = StateOf(item);
        const auto loaded = loaded_.find(block.Name);
        if (loaded == loaded_.end())
            refuse("it does not say what it was when it was loaded");
        ApplyChanges(loaded->second, now, block);
    }
    catch (const ComError& error)
    {
        refuse(DescribeError(error));
    }
    catch (const std::invalid_argument& mistake)
    {
        refuse(mistake.what());
    }
}

} // namespace kiv::host

#pragma once

#include "host/container/ControlClasses.h"
#include "host/container/Form.h"
#include "host/formfile/FormText.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kiv::host
{

struct PageOptions
{
    bool Design = false;
    bool ToBeSaved = true; // what it is like once it is loaded is kept, for Save to tell what was changed
    double Points = 0;     // of the form's font, to which all is enlarged; 0: the system's. Not to be saved
};

// A form file on the screen: makes the form and what stands on it, and writes it back. Throws FileError,
// FormError for what is wrong in the file, and std::runtime_error with such a line for each control that
// cannot be made and each value that a control does not take.
class FormPage
{
public:
    explicit FormPage(const std::filesystem::path& file, const PageOptions& options = {});

    Form& Window() { return *form_; }
    std::vector<ControlSite*> Sites() const; // in tab order

    // For every control that reads code tables: that has a property Database. Throws ComError.
    void GiveDatabase(IDispatch* database);

    // Keys that stay in the file although the control knows nothing of them, as "file:line: what".
    const std::vector<std::string>& Notes() const { return notes_; }

    // While the form stands: what has changed since it was loaded. Everything else of the file stays as it
    // was, byte for byte.
    void TakeChanges();
    // What was read, with the changes that were taken.
    void Save(const std::filesystem::path& file) const;

private:
    void AddItems(const FormBlock& container, FormItem* frame);
    FormItem* Add(const FormBlock& block, FormItem* frame);
    ControlSite* AddControl(const FormBlock& block, FormItem* frame);
    void CheckTaken(const FormBlock& block, ControlSite& site, const std::vector<LoggedError>& errors);
    void NoteUnknownKeys(const FormBlock& block, const ControlSite& site, const PropertyBag& bag);
    void Mistake(int line, const std::string& what);
    void Remember(FormItem& item);
    void Update(FormBlock& container, const std::map<std::string, FormItem*>& items);
    void UpdateItem(FormBlock& block, FormItem& item);

    std::string fileName_;
    FormDocument document_;
    ControlClasses classes_;
    std::unique_ptr<Form> form_;
    std::map<std::string, FormBlock> loaded_;  // how each item was once it was loaded
    std::multimap<int, std::string> mistakes_; // by line
    std::vector<std::string> notes_;
};

} // namespace kiv::host

#pragma once

#include "host/container/Form.h"
#include "host/formfile/FormBlock.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kiv::host
{

// A form file on the screen: makes the form and what stands on it, and writes it back. Throws FormError for
// what is wrong with the file, also when a control cannot be made or does not load.
class FormPage
{
public:
    FormPage(const std::filesystem::path& file, bool design);

    Form& Window() { return *form_; }
    std::vector<ControlSite*> Sites() const; // in tab order

    // For every control that reads code tables: that has a property Database. Throws ComError.
    void GiveDatabase(IDispatch* database);

    // What controls complained of while they were loaded, as "file:line: what".
    const std::vector<std::string>& Warnings() const { return warnings_; }

    void Save(const std::filesystem::path& file);

private:
    void Add(const FormBlock& block);
    void AddControl(const FormBlock& block);
    void SaveItem(FormBlock& block);

    std::string fileName_;
    FormDocument document_;
    std::unique_ptr<Form> form_;
    std::map<std::string, Microsoft::WRL::ComPtr<PropertyBag>> bags_; // as loaded, by control
    std::vector<std::string> warnings_;
};

} // namespace kiv::host

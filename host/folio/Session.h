#pragma once

#include "host/data/Database.h"
#include "host/folio/CommandLine.h"
#include "host/folio/FormPage.h"
#include "host/folio/Journal.h"
#include "host/folio/ScriptPlayer.h"
#include "host/folio/Speech.h"

#include <exception>
#include <memory>
#include <optional>

namespace kiv::host
{

// One showing of a form, from its files to what is written when it is closed. Throws what is wrong with a
// file or an option.
class Session
{
public:
    explicit Session(const CommandLine& line);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Until the form is closed. What a script expected in vain, a line each; empty when all went well.
    std::vector<std::string> Run();

private:
    bool MayClose();
    bool AnswersAreValid();
    void WriteLastWords();

    const CommandLine& line_;
    std::optional<Script> script_;
    std::shared_ptr<Journal> journal_;
    Microsoft::WRL::ComPtr<Database> database_;
    FormPage page_;
    MessageBoxWatch boxes_;
    std::optional<ScriptPlayer> player_;
    std::optional<Speech> speech_;
    std::exception_ptr failed_; // while the form was being closed
    bool isToBeSaved_ = false;
};

} // namespace kiv::host

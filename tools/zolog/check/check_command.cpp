#include <zolog/check/check_command.h>

#include <iostream>
#include <memory>
#include <string>
#include <system_error>

#include <CLI/CLI.hpp>

#include <zoerrlog/zoerrlog.h>

#include <zolog/check/check_report.h>
#include <zolog/check/findings.h>
#include <zolog/check/visible_text.h>
#include <zolog/check/vocabulary.h>

namespace zolog {

namespace {

struct CheckOptions {
    std::string file;
    bool components = false;
    bool fields = false;
};

void FlushReport() {
    if (!std::cout.flush()) {
        throw CommandError("cannot write to standard output");
    }
}

int CheckFile(const std::string& file) {
    const KnownComponents components = GetKnownComponents();
    const KnownFields fields = GetKnownFields();
    Findings findings(components, fields);
    const bool accepted = theLogger()->ReadTraceConfiguration(
        file.c_str(), [&findings](const ZoTraceConfigEvent& event) { findings.Add(event); });
    if (!accepted && !findings.Refusal()) {
        throw CommandError("cannot read '" + Visible(file) +
                           "': " + std::generic_category().message(findings.ReadError()));
    }
    findings.Finish();

    if (!findings.Refusal()) {
        WriteSelection(std::cout, findings, components, fields);
    }
    for (const Remark& warning : findings.Warnings()) {
        WriteRemark(std::cout, file, "warning", warning);
    }
    FlushReport();
    if (findings.Refusal()) {
        WriteRemark(std::cerr, file, "error", *findings.Refusal());
        return kExitUnusable;
    }
    return findings.Warnings().empty() ? kExitSuccess : kExitRefused;
}

int ListVocabulary(const CheckOptions& options) {
    if (options.components) {
        WriteComponents(std::cout, GetKnownComponents());
    }
    if (options.fields) {
        WriteFields(std::cout, GetKnownFields());
    }
    FlushReport();
    return kExitSuccess;
}

}  // namespace

void AddCheckCommand(CLI::App& app, CommandAction& action) {
    CLI::App* command = app.add_subcommand("check", "Says what a trace configuration selects.");
    auto options = std::make_shared<CheckOptions>();
    CLI::Option* file = command->add_option("FILE", options->file,
                                            "trace configuration to check; needed unless listing");
    command->add_flag("--components", options->components, "lists the components to choose from")
        ->excludes(file);
    command->add_flag("--fields", options->fields, "lists the data fields to choose from")
        ->excludes(file);
    command->callback([options, file, &action] {
        const bool list = options->components || options->fields;
        if (!list && file->count() == 0) {
            throw CLI::RequiredError("FILE");
        }
        action = [options, list] {
            return list ? ListVocabulary(*options) : CheckFile(options->file);
        };
    });
}

}  // namespace zolog

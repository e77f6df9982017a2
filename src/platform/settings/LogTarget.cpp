#include <platform/settings/LogTarget.h>

#include <string_view>

namespace platform {

namespace {

struct Form {
    LogTargetKind kind;
    bool hasPath;
    std::string_view text;  // the whole text, or what stands before the path
};

constexpr Form kForms[] = {
    {LogTargetKind::Syslog, false, "syslog"}, {LogTargetKind::StandardError, false, "stderr"},
    {LogTargetKind::None, false, "none"},     {LogTargetKind::File, true, "file:"},
    {LogTargetKind::Json, true, "json:"},
};

}  // namespace

std::optional<LogTarget> ParseLogTarget(const std::string& text) {
    for (const Form& form : kForms) {
        if (!form.hasPath && text == form.text) return LogTarget{form.kind, ""};
        if (form.hasPath && text.starts_with(form.text) && text.size() > form.text.size())
            return LogTarget{form.kind, text.substr(form.text.size())};
    }
    return std::nullopt;
}

std::string LogTargetText(const LogTarget& target) {
    for (const Form& form : kForms) {
        if (form.kind == target.kind) return std::string(form.text) + target.path;
    }
    return "";
}

}  // namespace platform

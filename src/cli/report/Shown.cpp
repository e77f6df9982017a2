#include <cli/Printable.h>
#include <cli/report/Shown.h>

#include <string>

namespace cli {

namespace {

void Show(std::string& text) { text = Printable(text); }

// For places of one line.
void ShowLine(std::string& text) { text = PrintableLine(text); }

void Show(ResultMessage& message) {
    Show(message.line);
    for (std::string& recommendation : message.recommendations) Show(recommendation);
}

void Show(platform::Trouble& trouble) {
    Show(trouble.text);
    Show(trouble.advice);
}

void Show(ControllerResult& controller) {
    ShowLine(controller.address);
    for (FailedBus& failed : controller.failedBusses) Show(failed.message);
    if (controller.message) Show(*controller.message);
    if (controller.trouble) Show(*controller.trouble);
}

}  // namespace

RunResult Shown(RunResult result) {
    ShowLine(result.machine.type);
    ShowLine(result.machine.biosId);
    ShowLine(result.machine.catalog);
    for (ControllerResult& controller : result.controllers) Show(controller);
    for (ResultMessage& message : result.messages) Show(message);
    for (platform::Trouble& trouble : result.troubles) Show(trouble);
    return result;
}

}  // namespace cli

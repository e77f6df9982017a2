// The commands of the program. Each function adds one.
#pragma once

#include <cli/commands/CommandSet.h>

namespace cli {

void AddRun(CommandSet& commands);
void AddEnumerate(CommandSet& commands);
void AddNames(CommandSet& commands);
void AddInvoke(CommandSet& commands);
void AddInfo(CommandSet& commands);
void AddRegister(CommandSet& commands);
void AddUnregister(CommandSet& commands);
void AddDoctor(CommandSet& commands);
void AddServe(CommandSet& commands);
void AddPasswd(CommandSet& commands);
void AddCatalog(CommandSet& commands);
void AddHelp(CommandSet& commands);

}  // namespace cli

#include "IConsoleModule.h"

IConsoleModule::~IConsoleModule() = default;

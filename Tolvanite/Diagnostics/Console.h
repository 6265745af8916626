// The console output of the library in one include: plain lines, the logging classes, lines with
// their source position, and coloured texts.
#pragma once

#include <Tolvanite/Diagnostics/CallerPosition.h>
#include <Tolvanite/Diagnostics/ConsoleColor.h>
#include <Tolvanite/Diagnostics/ConsoleModifier.h>
#include <Tolvanite/Diagnostics/LoggingStyle.h>
#include <Tolvanite/Diagnostics/PositionLog.h>
#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Diagnostics/QLogging.h>
#include <Tolvanite/Diagnostics/TextColoring.h>

// Everything that the library offers, in one include. Written by `./dev format`.
#pragma once

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Platform/SharedCount.h>

#pragma once

#include "MplsUtils/LspPing/types/Export.h"

// What `libLspPingMessage.so` offers to others.
#define LSPPING_MESSAGE_EXPORT __attribute__( ( visibility( "default" ) ) )

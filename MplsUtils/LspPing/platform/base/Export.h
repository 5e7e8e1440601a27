#pragma once

// What the platform layer exports from its shared object; everything else stays hidden.
#define LSPPING_PLATFORM_EXPORT __attribute__( ( visibility( "default" ) ) )

#pragma once

// What the library exports from its shared object; everything else stays hidden.
#define LSPPING_EXPORT __attribute__( ( visibility( "default" ) ) )

#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <iosfwd>
#include <span>

namespace Examples {

/// Writes a classic capture file of Ethernet frames with time stamps in microseconds, little-endian
/// on every machine.
class PcapWriter {
 public:
   /// Writes the file's header. The stream must live as long as the writer.
   explicit PcapWriter( std::ostream & out );

   /// Appends one frame; `wireLength` is more than its bytes when the capture cut it.
   void frame( U32 seconds, U32 microseconds, std::span< U8 const > bytes, std::size_t wireLength );

 private:
   void number( U32 value, unsigned bytes );

   std::ostream & out_;
};

} // namespace Examples

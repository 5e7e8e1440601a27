#pragma once

#include "tools/lspping/capture/EchoSource.h"

#include <chrono>
#include <string>

namespace LspPingTool {

/// A bar on standard error that shows how far a long input was read.
class Progress {
 public:
   /// Bytes below which an input is not worth a bar.
   static constexpr U64 longInput = U64{ 8 } << 20;

   /// With `isWanted`, but only when standard error is a terminal.
   explicit Progress( bool isWanted );

   /// Cheap enough to be called for every message.
   void show( EchoSource const & source, std::string const & file ) {
      if( isWanted_ && ++calls_ % 1024 == 0 )
         draw( source, file );
   }
   /// Takes the bar away, before something else is written to standard error.
   void hide();

 private:
   void draw( EchoSource const & source, std::string const & file );

   bool isWanted_;
   bool isShown_ = false;
   U32 calls_ = 0;
   std::chrono::steady_clock::time_point last_;
};

} // namespace LspPingTool

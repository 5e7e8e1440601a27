#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "tools/lspping/io/InputFile.h"

#include <memory>
#include <string>
#include <string_view>

namespace LspPingTool {

/// The lines of an input, one held at a time.
class LineReader {
 public:
   /// Bytes above which a line is not kept.
   static constexpr std::size_t maximumLength = std::size_t{ 16 } << 20;

   enum class Step {
      line,
      tooLong, ///< it was passed over
      end,     ///< of the input, or of what can be read of it
   };

   explicit LineReader( InputFile & input );

   Step next();
   /// Without its end.
   std::string_view line() const noexcept;
   /// Of the line that the last step met, from 1.
   U64 number() const noexcept { return number_; }

 private:
   /// More of the input in the buffer; false if there is no more.
   bool fill();

   InputFile & input_;
   std::unique_ptr< char[] > buffer_;
   std::string_view unread_; ///< of the buffer
   std::string line_;
   U64 number_ = 0;
};

} // namespace LspPingTool

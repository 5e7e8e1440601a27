#pragma once

#include <memory>
#include <string>

#include "tools/lspping/capture/EchoSource.h"
#include "tools/lspping/io/HexBytes.h"
#include "tools/lspping/io/InputFile.h"

namespace LspPingTool {

/// Messages as hexadecimal text, one a line, without any lower layer.
///
/// A byte is two digits of either case. Between bytes blanks, ':' and '-' may stand, and before any
/// byte that begins a line or follows one of these, "0x". '#' begins a comment. Lines without bytes
/// are passed over. There are no offsets in front, as other tools' dumps have them: "0000:" is two
/// bytes here. A line with anything else is an error, and the lines after it are read.
///
/// A packet's number counts the lines that hold something, good or bad. One message is held at a
/// time.
class HexReader final : public EchoSource {
 public:
   /// No UDP datagram has more.
   static constexpr std::size_t maximumLength = 65535;

   /// "-" is standard input.
   explicit HexReader( std::string const & path, BeforeWait beforeWait = {} );

   Step next() override;
   U64 bytesRead() const noexcept override { return input_.bytesRead(); }
   std::optional< U64 > bytesTotal() const noexcept override { return input_.bytesTotal(); }

 private:
   /// The next character, or -1 at the end or on a failure.
   int character();
   /// `last` is the character read last.
   void skipLine( int last );
   Step nextLine();
   Step failed( std::string text );

   InputFile input_;
   std::unique_ptr< char[] > buffer_;
   std::size_t position_ = 0;
   std::size_t filled_ = 0;
   HexBytes hex_{ maximumLength };
   U64 lines_ = 0;
   U64 messages_ = 0;
   bool isEnded_ = false;
   bool isFailureTold_ = false;
};

} // namespace LspPingTool

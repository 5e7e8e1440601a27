#pragma once

#include <memory>
#include <string>

#include "tools/lspping/capture/Dissect.h"
#include "tools/lspping/capture/EchoSource.h"
#include "tools/lspping/io/InputFile.h"

// libpcap's handle; its header is for the implementation only.
struct pcap;

namespace LspPingTool {

/// The echo messages of a capture, pcap or pcapng, through libpcap. One packet is held at a time.
/// Opening fails no earlier than in the first step. The interfaces of a pcapng file must agree in
/// their link type: libpcap ends at the first that does not.
class CaptureReader final : public EchoSource {
 public:
   /// "-" is standard input.
   explicit CaptureReader( std::string const & path, BeforeWait beforeWait = {} );
   ~CaptureReader() override;

   Step next() override;
   U64 bytesRead() const noexcept override { return input_.bytesRead(); }
   std::optional< U64 > bytesTotal() const noexcept override { return input_.bytesTotal(); }

 private:
   enum class State {
      unopened,
      open,
      ended,
   };
   struct Close {
      void operator()( pcap * capture ) const noexcept;
   };

   bool open();
   Step failed( ExitStatus status, std::string text );

   // In this order: libpcap reads from the input through the buffer until it is closed.
   InputFile input_;
   std::unique_ptr< char[] > buffer_;
   std::unique_ptr< pcap, Close > capture_;
   Dissector dissector_ = nullptr;
   U64 packets_ = 0;
   State state_ = State::unopened;
};

} // namespace LspPingTool

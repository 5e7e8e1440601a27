#pragma once

#include "tools/lspping/capture/Dissect.h"

#include "tests/WireBytes.h"
#include "tests/tools/capture/Build.h"

/// Dissects a copy in a heap block of exactly its size, at an odd address.
class Dissected {
 public:
   Dissected( int linkType, Bytes const & bytes, std::size_t wireLength ) : bytes_( bytes ) {
      isMessage = LspPingTool::dissect( linkType, { bytes_.bytes(), wireLength }, packet );
   }
   Dissected( int linkType, Bytes const & bytes ) : Dissected( linkType, bytes, bytes.size() ) {}

   Bytes payload() const { return { packet.payload.begin(), packet.payload.end() }; }
   Bytes source() const { return { packet.source.begin(), packet.source.end() }; }
   Bytes destination() const { return { packet.destination.begin(), packet.destination.end() }; }

 private:
   WireBytes bytes_;

 public:
   LspPingTool::EchoPacket packet;
   bool isMessage = false;
};

inline void isPlainMessage( Dissected const & result ) {
   EXPECT_TRUE( result.isMessage );
   EXPECT_EQ( result.payload(), message );
   EXPECT_EQ( result.packet.claimedLength, message.size() );
   EXPECT_EQ( result.packet.problems, std::vector< LspPingTool::Problem >{} );
}

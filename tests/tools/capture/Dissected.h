#pragma once

#include "tools/lspping/capture/Dissect.h"

#include <algorithm>
#include <memory>

#include "tests/tools/capture/Build.h"

/// Dissects a copy in a heap block of exactly its size, at an odd address.
class Dissected {
 public:
   Dissected( int linkType, Bytes const & bytes, std::size_t wireLength )
      : block_( new U8[bytes.size() + 1] ) {
      std::copy( bytes.begin(), bytes.end(), block_.get() + 1 );
      isMessage = LspPingTool::dissect(
         linkType, { { block_.get() + 1, bytes.size() }, wireLength }, packet );
   }
   Dissected( int linkType, Bytes const & bytes ) : Dissected( linkType, bytes, bytes.size() ) {}

   Bytes payload() const { return { packet.payload.begin(), packet.payload.end() }; }
   Bytes source() const { return { packet.source.begin(), packet.source.end() }; }
   Bytes destination() const { return { packet.destination.begin(), packet.destination.end() }; }

 private:
   std::unique_ptr< U8[] > block_;

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

#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <vector>

namespace Bench {

/// What the parsers and their packet would be with Boost: counted bytes, and a counted object with
/// a virtual destructor that keeps them alive. `Policy` is Boost's: counts are atomic or not.
template < class Policy >
struct CountedPacket : boost::intrusive_ref_counter< CountedPacket< Policy >, Policy > {
   std::vector< U8 > bytes = std::vector< U8 >( 64 );
};

template < class Policy >
class CountedParser : public boost::intrusive_ref_counter< CountedParser< Policy >, Policy > {
 public:
   using Packet = boost::intrusive_ptr< CountedPacket< Policy > >;

   CountedParser( Packet const & packet, U32 offset )
      : offset_( offset ),
        packet_( packet ),
        header_( packet_->bytes.data() + offset ) {}
   CountedParser( CountedParser const & ) = delete;
   CountedParser & operator=( CountedParser const & ) = delete;
   virtual ~CountedParser() = default;

   U8 const * header() const noexcept { return header_; }

 private:
   U32 offset_;
   Packet packet_;
   U8 * header_;
};

} // namespace Bench

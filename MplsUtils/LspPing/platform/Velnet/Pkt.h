#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <span>
#include <vector>

namespace Velnet {

/// A packet: one buffer of bytes or several, of which one is current. In each buffer the data
/// begins at a start that moves as headers are stripped and given back, and ends with the buffer.
///
/// The packet owns its buffers; addresses inside them are good as long as the packet lives, also
/// after another buffer was added or made current. Threads may read it at the same time; whoever
/// moves a start or changes the current buffer must be alone with it.
class LSPPING_PLATFORM_EXPORT Pkt final : public Orlo::Node {
 public:
   /// A packet of one buffer, which it takes over without copying. The data is the whole buffer.
   explicit Pkt( std::vector< U8 > && buffer );
   ~Pkt() override;

   Kiv::TypeRef typeData() const override;

   U32 bufferCount() const noexcept { return static_cast< U32 >( buffers_.size() ); }
   U32 currentBuffer() const noexcept { return current_; }
   /// Raises `Kiv::RangeException` if the packet has no such buffer.
   void currentBufferIs( U32 index );

   /// Takes over one more buffer without copying; returns its index. The current one stays.
   U32 bufferAdd( std::vector< U8 > && buffer );

   /// Address of the first byte of the current buffer's data; never null. One past the buffer's end
   /// where there is no data.
   U8 * data() noexcept { return data_; }
   U8 const * data() const noexcept { return data_; }

   /// Bytes of the current buffer's data.
   U32 size() const noexcept { return size_; }

   /// Where the data starts, in bytes from the start of the current buffer.
   U32 dataStart() const noexcept { return buffers_[current_].dataStart; }
   /// Raises `Kiv::RangeException` for a start behind the buffer's end.
   void dataStartIs( U32 start );

   /// Moves the data's start forward, past a header. Raises `Kiv::RangeException` if there are not
   /// as many bytes.
   void strip( U32 count );

   /// Moves the data's start back by bytes that the buffer holds before it. Raises
   /// `Kiv::RangeException` if there are not as many.
   void extend( U32 count );

   /// One byte of the data. Raises `Kiv::RangeException` for an offset outside.
   U8 rawByte( U32 offset ) const {
      if( offset >= size_ ) [[unlikely]]
         offsetOutside( offset );
      return data_[offset];
   }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &Pkt::size >( "size" ) );
   }

 private:
   struct Buffer {
      std::vector< U8 > bytes;
      U32 dataStart;
   };

   [[noreturn]] void offsetOutside( U32 offset ) const;
   void locateData() noexcept;

   // Those of the current buffer.
   U32 size_ = 0;
   U32 current_ = 0;
   U8 * data_ = nullptr;
   std::vector< Buffer > buffers_;
};

/// A packet with a copy of `bytes` in a buffer of exactly that size.
LSPPING_PLATFORM_EXPORT Orlo::Ptr< Pkt > pktFactory( std::span< U8 const > bytes );

/// A packet that takes the buffer over without copying.
LSPPING_PLATFORM_EXPORT Orlo::Ptr< Pkt > pktFactory( std::vector< U8 > && buffer );

} // namespace Velnet

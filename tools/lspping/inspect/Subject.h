#pragma once

#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <memory>
#include <span>

namespace LspPingTool {

/// A view, parser or container over bytes. The element begins at an odd address, as elements in
/// packets do.
class Subject {
 public:
   /// Raises UsageError for a type that is not laid over bytes, InputError for too few of them.
   Subject( Kiv::TypeRef type, std::span< U8 const > bytes, U32 offset );
   Subject( Subject const & ) = delete;
   Subject & operator=( Subject const & ) = delete;
   ~Subject();

   /// A write may have changed the length, and with it the bytes that a view needs: raises
   /// InputError if they are too few now.
   void checkBytes() const;

   Kiv::TypeRef type() const noexcept { return type_; }
   void * object() const noexcept { return object_; }
   /// All bytes, as the writes have left them.
   std::span< U8 const > bytes() const noexcept { return bytes_; }

 private:
   void packetIs( std::span< U8 const > bytes );
   void copyIs( Kiv::TypeRef type, void * copy );
   void parserIs( Kiv::TypeRef parser );
   void containerIs();

   Kiv::TypeRef type_;
   U32 offset_;
   Orlo::Ptr< Velnet::Pkt > pkt_;
   std::span< U8 > bytes_;
   Orlo::Ptr< Orlo::Node > node_;
   std::unique_ptr< void, void ( * )( void * ) > copy_; ///< of an element that is no view (Pad)
   void * object_ = nullptr;
};

} // namespace LspPingTool

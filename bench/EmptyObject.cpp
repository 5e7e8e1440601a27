extern "C" [[gnu::visibility( "default" )]] int emptyObject() {
   return 0;
}

/// How the allocator that is linked to the tool works: what a document took goes back to the system
/// soon, since the next need may be larger than what fell free.
extern "C" {
extern const char* malloc_conf;
const char* malloc_conf = "dirty_decay_ms:200,muzzy_decay_ms:0";
}

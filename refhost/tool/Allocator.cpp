/// How the allocator that is linked to the tool works: what a document took goes back to the system
/// within seconds. Sooner, and the next split would have to ask for it again.
extern "C" {
extern const char* malloc_conf;
const char* malloc_conf = "dirty_decay_ms:5000,muzzy_decay_ms:0";
}

extern "C" __attribute__((visibility("default"))) int ZoTestPlugin() {
    return 1;
}

// Tells where the library to link with lies, where that is none of the linker's own folders.
fn main() {
    println!("cargo:rerun-if-env-changed=VEXLOR32_LINK");
    if let Ok(folder) = std::env::var("VEXLOR32_LINK") {
        println!("cargo:rustc-link-search=native={}", folder);
    }
}

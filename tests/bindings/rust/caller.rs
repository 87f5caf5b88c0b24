// Makes the calls of the conformance library (conformance.h) through the Rust crate.
use std::cell::RefCell;
use std::collections::HashMap;
use std::ffi::{CStr, CString};
use std::os::raw::{c_char, c_void};
use std::panic::{catch_unwind, AssertUnwindSafe};
use vexlor32::{exact, File, Table};

#[link(name = "vexlor_conformance")]
extern "C" {
    fn vxc_run(traits: i32, errors: *const c_char, call: extern "C" fn(*const c_char, i32)) -> i32;
    fn vxc_is_friendly() -> i32;
    fn vxc_kind(i: i32) -> i32;
    fn vxc_number(i: i32) -> i64;
    fn vxc_memory(i: i32) -> *const u8;
    fn vxc_size(i: i32) -> i64;
    fn vxc_pointer(i: i32) -> *mut u8;
    fn vxc_gave_number(number: i64);
    fn vxc_gave_place(place: *const u8);
    fn vxc_gave_text(text: *const u8, size: i64);
    fn vxc_gave_null();
    fn vxc_refused(words: *const c_char);
}

/// What friendly functions take, and what they gave. Opened objects stay where they are.
#[derive(Default)]
pub struct Friendly {
    opened: HashMap<(i32, i64), *mut c_void>,
}

impl Friendly {
    fn number(&self, i: i32) -> i32 {
        unsafe { vxc_number(i) as i32 }
    }
    fn unsigned(&self, i: i32) -> u32 {
        unsafe { vxc_number(i) as u32 }
    }
    fn bytes(&self, i: i32) -> Vec<u8> {
        unsafe { if vxc_size(i) == 0 { Vec::new() } else { std::slice::from_raw_parts(vxc_memory(i), vxc_size(i) as usize).to_vec() } }
    }
    fn text(&self, i: i32) -> Option<String> {
        let kind = unsafe { vxc_kind(i) };
        if kind == 'z' as i32 { None } else { Some(String::from_utf8(self.bytes(i)).ok().filter(|_| kind == 'u' as i32).unwrap_or_else(|| self.bytes(i).into_iter().map(char::from).collect())) }
    }
    fn opened<T>(&self, i: i32) -> &'static mut T {
        unsafe { &mut *self.opened[&(vxc_kind(i), vxc_number(i))].cast() }
    }
    fn gave(&self, number: i64) {
        unsafe { vxc_gave_number(number) }
    }
    fn gave_text(&self, text: Option<String>) {
        match text {
            Some(text) => self.gave_bytes(&text.chars().map(|c| c as u8).collect::<Vec<u8>>()),
            None => unsafe { vxc_gave_null() },
        }
    }
    fn gave_bytes(&self, bytes: &[u8]) {
        unsafe { vxc_gave_text(bytes.as_ptr(), bytes.len() as i64) }
    }
    fn gave_block(&self, i: i32, block: &[u8]) {
        if unsafe { vxc_kind(i) } == 'B' as i32 {
            self.gave_bytes(block);
        }
    }
    fn gave_offset(&self, offset: Option<usize>) {
        offset.map_or_else(|| unsafe { vxc_gave_null() }, |offset| self.gave(offset as i64));
    }
    fn gave_object<T>(&mut self, kind: char, handle: Option<i64>, object: Option<T>) {
        self.gave_offset(handle.map(|handle| handle as usize));
        self.opened.extend(object.map(|object| ((kind as i32, handle.unwrap()), Box::into_raw(Box::new(object)).cast())));
    }
}

include!(env!("VEXLOR32_DISPATCH"));

thread_local! {
    static FUNCTIONS: HashMap<&'static str, &'static Call> = EXACT.iter().map(|(name, call)| (*name, call)).collect();
    static FRIENDLY: RefCell<Friendly> = RefCell::default();
}

extern "C" fn call(name: *const c_char, _count: i32) {
    let name = unsafe { CStr::from_ptr(name) }.to_str().unwrap();
    let made = catch_unwind(AssertUnwindSafe(|| match unsafe { vxc_is_friendly() } {
        0 => FUNCTIONS.with(|functions| unsafe { invoke(functions[name]) }),
        _ => FRIENDLY.with(|friendly| friendly_call(&mut friendly.borrow_mut(), name)),
    }));
    if let Err(error) = made {
        let words = error.downcast_ref::<String>().map(String::as_str).or_else(|| error.downcast_ref::<&str>().copied());
        let words = CString::new(words.unwrap_or("panic")).unwrap();
        unsafe { vxc_refused(words.as_ptr()) }
    }
}

fn main() {
    std::panic::set_hook(Box::new(|_| {})); // the row says it
    std::process::exit(unsafe { vxc_run(4, "NUL|closed|bytes|character\0".as_ptr().cast(), call) });
}

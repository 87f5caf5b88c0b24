// SPDX-License-Identifier: MIT
//! What the functions are made of.

use std::convert::TryFrom;
use std::ffi::CStr;
use std::os::raw::c_char;

const LARGEST_ROOM: i64 = 1 << 31;
const LEAST_HOST_ROOM: i64 = 1 << 18; // no program is started with a longer text

/// A text argument: `&str`, `&String`, `String`, or an `Option` of `&str`, where `None` is NULL.
pub trait Text {
    /// Its bytes as the library takes them.
    fn encoded(&self) -> Option<Vec<u8>>;
}

impl Text for &str {
    fn encoded(&self) -> Option<Vec<u8>> {
        Some(latin1(self))
    }
}

impl Text for String {
    fn encoded(&self) -> Option<Vec<u8>> {
        Some(latin1(self))
    }
}

impl Text for &String {
    fn encoded(&self) -> Option<Vec<u8>> {
        Some(latin1(self))
    }
}

impl Text for Option<&str> {
    fn encoded(&self) -> Option<Vec<u8>> {
        self.map(latin1)
    }
}

fn latin1(text: &str) -> Vec<u8> {
    let mut bytes = Vec::with_capacity(text.len() + 1);
    for character in text.chars() {
        let byte = u8::try_from(u32::from(character)).unwrap_or_else(|_| panic!("{:?} is no character of Latin-1", character));
        assert!(byte != 0, "the text has a NUL in it");
        bytes.push(byte);
    }
    bytes.push(0);
    bytes
}

pub fn size(text: &Option<Vec<u8>>) -> i64 {
    text.as_ref().map_or(0, |bytes| bytes.len() as i64 - 1)
}

pub fn pointer(text: &Option<Vec<u8>>) -> *const c_char {
    text.as_ref().map_or(std::ptr::null(), |bytes| bytes.as_ptr().cast())
}

pub fn editable(text: &mut Option<Vec<u8>>) -> *mut c_char {
    text.as_mut().map_or(std::ptr::null_mut(), |bytes| bytes.as_mut_ptr().cast())
}

/// The room for the longest text of the command line and of the environment.
pub fn host_room() -> i64 {
    let longest = std::env::vars_os().map(|(name, value)| 4 * (name.len() + value.len()) as i64 + 2).max();
    longest.unwrap_or(0).max(LEAST_HOST_ROOM)
}

pub fn destination(room: i64) -> Option<Vec<u8>> {
    assert!(room <= LARGEST_ROOM, "the result could need {} bytes", room);
    Some(vec![0; room.max(1) as usize])
}

/// Where in the block the call begins; below 0, `before` counts bytes in front of that.
pub fn front(block: &[u8], needed: i64, before: i32) -> usize {
    let front = (-i64::from(before)).max(0);
    assert!(block.len() as i64 >= needed + front, "{} bytes, where the call needs {}", block.len(), needed + front);
    front as usize
}

pub fn from_zero(position: i32) -> i32 {
    position.checked_add(1).expect("a position")
}

pub fn decoded(bytes: &Option<Vec<u8>>) -> String {
    let bytes = bytes.as_deref().unwrap_or(&[]);
    bytes.iter().take_while(|byte| **byte != 0).map(|byte| char::from(*byte)).collect()
}

/// A constant text of the library.
pub fn text_at(place: *const c_char) -> Option<String> {
    if place.is_null() {
        return None;
    }
    let bytes = unsafe { CStr::from_ptr(place) }.to_bytes();
    Some(bytes.iter().map(|byte| char::from(*byte)).collect())
}

pub fn offset(start: *const u8, place: *const u8) -> Option<usize> {
    (place as usize).checked_sub(start as usize).filter(|_| !place.is_null() && !start.is_null())
}

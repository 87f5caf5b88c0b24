// Makes the calls of vexlor_conformance through the Rust crate; caller_process.h has the protocol.
use std::collections::HashMap;
use std::ffi::CStr;
use std::io::{BufRead, Write};
use std::os::raw::{c_char, c_void};
use std::panic::{catch_unwind, AssertUnwindSafe};
use vexlor32::{exact, File, Table};

#[derive(Clone, Copy)]
pub struct Value {
    number: i64,
    place: *mut u8,
}

pub enum Returned {
    Nothing,
    Number(i64),
    Place(*const u8),
}

/// A friendly call: its words as what the functions take, and what they gave as words.
#[derive(Default)]
pub struct Friendly {
    words: Vec<String>,
    result: Option<String>,
    written: Option<String>,
    others: String,
    tables: HashMap<String, Table>,
    files: HashMap<String, File>,
}

impl Friendly {
    fn number(&self, i: usize) -> i32 {
        self.words[i][1..].parse::<i64>().unwrap() as i32
    }
    fn unsigned(&self, i: usize) -> u32 {
        self.words[i][1..].parse().unwrap()
    }
    fn bytes(&self, i: usize) -> Vec<u8> {
        bytes_of(&self.words[i][1..])
    }
    fn text(&self, i: usize) -> Option<String> {
        if self.words[i] == "z" { None } else { Some(self.bytes(i).into_iter().map(char::from).collect()) }
    }
    fn table(&mut self, i: usize) -> Table {
        self.tables.remove(&self.words[i]).expect("no such table")
    }
    fn file(&mut self, i: usize) -> File {
        self.files.remove(&self.words[i]).expect("no such file")
    }
    fn keep_table(&mut self, i: usize, table: Table) {
        self.tables.insert(self.words[i].clone(), table);
    }
    fn keep_file(&mut self, i: usize, file: File) {
        self.files.insert(self.words[i].clone(), file);
    }
    fn keep(&mut self, name: &str, word: String) {
        if name == "result" {
            self.result = Some(word);
        } else if word != "z" {
            self.others += &format!(" {}={}", name, word);
        }
    }
    fn lies_in(&mut self, word: String) {
        self.written.get_or_insert(word);
    }
    fn gave(&mut self, name: &str, number: i64) {
        self.keep(name, format!("n{}", number));
    }
    fn gave_text(&mut self, name: &str, text: Option<String>) {
        if name != "result" {
            self.lies_in(text.as_ref().map_or("z".into(), |_| format!("p{}@0", name)));
        }
        self.keep(name, text.map_or("z".into(), |text| format!("t{}", hex(&text.chars().map(|c| c as u8).collect::<Vec<u8>>()))));
    }
    fn gave_block(&mut self, name: &str, bytes: Vec<u8>) {
        self.lies_in(format!("p{}@0", name));
        self.keep(name, format!("t{}", hex(&bytes)));
    }
    fn gave_offset(&mut self, name: &str, offset: Option<usize>, place: &str) {
        self.keep(name, offset.map_or("z".into(), |offset| format!("p{}@{}", place, offset)));
    }
    fn gave_table(&mut self, name: &str, table: Option<Table>) {
        let word = table.as_ref().map_or("n0".into(), |table| format!("n{}", table.handle()));
        self.tables.extend(table.map(|table| (word.clone(), table)));
        self.keep(name, word);
    }
    fn gave_file(&mut self, name: &str, file: Option<File>) {
        let word = file.as_ref().map_or("n-1".into(), |file| format!("n{}", file.handle()));
        self.files.extend(file.map(|file| (word.clone(), file)));
        self.keep(name, word);
    }
    fn answer_to(&mut self, name: &str, words: Vec<String>) -> String {
        self.words = words;
        self.result = None;
        self.written = None;
        self.others.clear();
        friendly_call(self, name);
        let first = self.result.take().or_else(|| self.written.take()).unwrap_or_else(|| "v".into());
        first + &self.others
    }
}

include!(env!("VEXLOR32_DISPATCH"));

fn bytes_of(digits: &str) -> Vec<u8> {
    let value = |digit: u8| if digit <= b'9' { digit - b'0' } else { digit - b'a' + 10 };
    digits.as_bytes().chunks_exact(2).map(|pair| value(pair[0]) << 4 | value(pair[1])).collect()
}

fn hex(bytes: &[u8]) -> String {
    const DIGITS: &[u8; 16] = b"0123456789abcdef";
    let mut digits = vec![0; 2 * bytes.len()];
    for (pair, byte) in digits.chunks_exact_mut(2).zip(bytes) {
        pair[0] = DIGITS[(byte >> 4) as usize];
        pair[1] = DIGITS[(byte & 15) as usize];
    }
    String::from_utf8(digits).unwrap()
}

fn exact_call(call: &Call, words: &[String]) -> String {
    let mut memories: Vec<Option<Vec<u8>>> = vec![None; words.len()];
    let mut values = vec![Value { number: 0, place: std::ptr::null_mut() }; words.len()];
    for (i, word) in words.iter().enumerate() {
        let (rest, offset) = word[1..].split_once('@').unwrap_or((&word[1..], "0"));
        match &word[..1] {
            "n" => values[i].number = rest.parse().unwrap(),
            "=" => values[i] = values[rest.parse::<usize>().unwrap()],
            "m" => {
                let memory = memories[i].insert(bytes_of(rest));
                values[i].place = memory.as_mut_ptr().wrapping_add(offset.parse().unwrap());
            }
            _ => {}
        }
    }
    let mut answer = match invoke(call, &values) {
        Returned::Nothing => "v".into(),
        Returned::Number(number) => format!("n{}", number),
        Returned::Place(place) if place.is_null() => "z".into(),
        Returned::Place(place) => found(place, &memories),
    };
    for memory in memories.iter().flatten() {
        answer += &format!(" m{}", hex(memory));
    }
    answer
}

fn found(place: *const u8, memories: &[Option<Vec<u8>>]) -> String {
    // The end of one may be the beginning of another.
    for beyond in 0..2 {
        for (i, memory) in memories.iter().enumerate() {
            if let Some(memory) = memory {
                let offset = (place as usize).wrapping_sub(memory.as_ptr() as usize);
                if offset < memory.len() + beyond {
                    return format!("p{}@{}", i, offset);
                }
            }
        }
    }
    format!("t{}", hex(unsafe { CStr::from_ptr(place.cast()) }.to_bytes()))
}

fn main() {
    std::panic::set_hook(Box::new(|_| {})); // the answer says it
    let functions: HashMap<&str, &Call> = EXACT.iter().map(|(name, call)| (*name, call)).collect();
    let mut friendly = Friendly::default();
    for line in std::io::stdin().lock().lines() {
        let mut words: Vec<String> = line.unwrap().split(' ').map(String::from).collect();
        let arguments = words.split_off(2);
        let answer = catch_unwind(AssertUnwindSafe(|| match words[0].as_str() {
            "call" => exact_call(functions.get(words[1].as_str()).expect("no such function"), &arguments),
            "friendly" => friendly.answer_to(&words[1], arguments),
            _ => {
                std::env::set_current_dir(String::from_utf8(bytes_of(&words[1])).unwrap()).unwrap();
                "ok".into()
            }
        }));
        let answer = answer.unwrap_or_else(|error| {
            let words = error.downcast_ref::<String>().map(String::as_str).or_else(|| error.downcast_ref::<&str>().copied());
            format!("!{}", words.unwrap_or("panic").replace('\n', " "))
        });
        println!("{}", answer);
        std::io::stdout().flush().unwrap();
    }
}

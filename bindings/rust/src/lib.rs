// SPDX-License-Identifier: MIT
//! A general-purpose function library: strings, tokens, numbers, dates, files and tables.
//!
//! The functions take texts and give `String`. A failure shows in the result, `None` where there is no table, file or
//! text; `f_error()` gives the reason of the last one. Positions begin with 0, and one that does not exist is -1.
//!
//! Texts are Latin-1. A character that it lacks, a NUL inside a text, a block that is shorter than what the call needs,
//! and a table or file that is closed are mistakes of the program: the call panics before anything is written.
//!
//! `exact` has the exported names as they are, with pointers.

pub mod constants;
pub mod exact;
mod functions;
mod runtime;

pub use functions::*;
pub use runtime::Text;

// Ten functions and a table, by the crate.
use vexlor32::*;

fn main() {
    println!("{}", all_trim("  Hartwell & Sons  ").unwrap());
    println!("{}", str_center("PAID", 20, "*").unwrap());
    println!("{}", token("Hartwell & Sons, Bristol", None::<&str>, 3).unwrap());
    println!("{}", num_to_dollars("1,234.56", 0).unwrap());
    println!("{}", num_to_roman(1999).unwrap());
    println!("{}", soundex("Smith", "", 4).unwrap());
    println!("{}", crc32(b"123456789", 0xFFFF_FFFF, 9));
    println!("{}", i32::from(is_leap(1996)));
    println!("{}", int_to_julian(2000, 1, 1));
    println!("{}", str_tran("Harwell & Sons, Harwell Road", "Harwell", "Hartwell", 1, -1).unwrap());

    let table = dbf_open("cheques", constants::VX_OPEN_READ).unwrap();
    println!("{} records", table.lastrec());
    for number in 1..=table.lastrec() {
        table.goto(number as i32);
        println!("{}|{}", table.field("PAYEE").unwrap(), table.field("AMOUNT").unwrap());
    }
}

// A memory that is read only, with its content from a file.
module rom #(
    parameter FILE = "boot.hex"
) (
    input  wire       clk,
    input  wire [3:0] address,
    output reg  [7:0] data
);

  reg [7:0] words[0:15];
  initial $readmemh(FILE, words);
  always @(posedge clk) data <= words[address];

endmodule

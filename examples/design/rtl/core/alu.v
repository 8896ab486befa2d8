// Adds or subtracts.
module alu (
    input  wire [7:0] a,
    input  wire [7:0] b,
    input  wire       subtract,
    output wire [7:0] result,
    output wire       carry
);

  assign {carry, result} = subtract ? {1'b0, a} - {1'b0, b} : {1'b0, a} + {1'b0, b};

endmodule
